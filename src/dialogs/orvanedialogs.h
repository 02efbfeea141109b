#ifndef ORVANE_ORVANEDIALOGS_H
#define ORVANE_ORVANEDIALOGS_H

/// @file
/// Dialogs: the bar dialog and its skins, the Mac-style dialog, the message box, the popped-dialog registry.

#include <Orvane/bardialog.h>
#include <Orvane/dialogskinstyle.h>
#include <Orvane/macdialog.h>
#include <Orvane/omessagebox.h>
#include <Orvane/poppingdialogmgr.h>

#endif // ORVANE_ORVANEDIALOGS_H
