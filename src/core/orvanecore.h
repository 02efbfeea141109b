#ifndef ORVANE_ORVANECORE_H
#define ORVANE_ORVANECORE_H

/// @file
/// Library foundation: start-up and resources, thread helpers, window, layout
/// and image helpers, the log file, version.

#include <Orvane/helpers.h>
#include <Orvane/minilogger.h>
#include <Orvane/startup.h>
#include <Orvane/threads.h>
#include <Orvane/version.h>

#endif // ORVANE_ORVANECORE_H
