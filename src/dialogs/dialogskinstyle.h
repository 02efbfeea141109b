#ifndef ORVANE_DIALOGSKINSTYLE_H
#define ORVANE_DIALOGSKINSTYLE_H

// The looks of the library's dialogs, chosen by a skin number.
//
// Skin 2 is the dark skin; every other number is light. Skins 3 and 4 are
// light skins whose message-box buttons differ. A default-constructed record
// holds the light values; dialogSkinStyle() returns the record of a skin by
// value (the strings are implicitly shared, so copies are cheap).
//
// The process keeps one current skin for dialogs that take none as an
// argument (the message box). It starts at 2, so a host that never sets it
// gets dark message boxes. GUI thread only: it is a plain int.

#include <Orvane/orvane_export.h>

#include <QString>

namespace Orvane {

struct ORVANE_EXPORT DialogSkinStyle
{
    DialogSkinStyle();

    // Message box.
    QString primaryButtonStyle;   // the highlighted button
    QString secondaryButtonStyle; // every other button
    QString headingStyle;         // the bold heading
    QString iconTint;             // colour the icon is recoloured to; empty: none

    // Bar dialog and Mac-style dialog.
    int barHeight;
    int closeButtonSize;          // square
    int barIconSize;              // square
    QString titleStyle;           // empty: the title label stays unstyled
    QString barStyle;             // the lower, painted bar
    QString barOverlayStyle;      // the upper, transparent bar
    QString closeButtonStyle;
    QString contentStyle;
    QString dialogBackground;     // colour name; empty: none
};

// The record of `skin`: 2 dark, 3 and 4 light with their own buttons,
// anything else light.
ORVANE_EXPORT DialogSkinStyle dialogSkinStyle(int skin);

// The process-wide skin of dialogs that take none as an argument; initially 2.
ORVANE_EXPORT int currentDialogSkin();
ORVANE_EXPORT void setCurrentDialogSkin(int skin);

} // namespace Orvane

#endif // ORVANE_DIALOGSKINSTYLE_H
