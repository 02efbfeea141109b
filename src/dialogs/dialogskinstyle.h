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
//
// Readability: every text has a contrast ratio of at least 4.5:1 with what
// lies behind it (WCAG 2.x). Colours that did not pass were replaced by the
// nearest shade of the same hue that does (old -> new, ratio old -> new):
// - dark skin, message text on #2E2F30: #333333 -> #CCCCCC (1.06 -> 8.35);
//   check-box text: #666666 -> #AAAAAA (2.34 -> 5.77); the light skins keep
//   #333333 (12.63) and #666666 (5.74);
// - dark skin buttons: the fill behind white text #8273FF -> #6C5AFF
//   (3.59 -> 4.62); the ring buttons' text and ring on the panel
//   #8273FF -> #9588FF (3.73 -> 4.63);
// - light primary gradient #5C8BFF/#9A68FF -> #2B68FF/#884DFF (3.19/3.62 ->
//   4.64/4.61); hover #80A4FF/#BB99FF -> #2D68FF/#884DFF (2.42/2.30 ->
//   4.63/4.61); pressed #4D7AE9/#976EEA -> #3C6DE7/#8757E7 (3.98/3.66 ->
//   4.63/4.62); the ring's text and ring #5C8BFF -> #2B68FF (3.19 -> 4.64);
// - skin 3 #2782FF -> #006BFF (3.67 -> 4.62); skin 4 #8372FF -> #6D5AFF
//   (3.61 -> 4.61), as fill behind white text and as text on white.

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
