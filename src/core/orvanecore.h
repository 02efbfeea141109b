#ifndef ORVANE_ORVANECORE_H
#define ORVANE_ORVANECORE_H

// Library foundation: start-up and resources, thread helpers, version.
#include <Orvane/startup.h>
#include <Orvane/threads.h>
#include <Orvane/version.h>

#endif // ORVANE_ORVANECORE_H
