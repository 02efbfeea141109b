#ifndef ORVANE_DIALOGSKINSTYLE_H
#define ORVANE_DIALOGSKINSTYLE_H

/// @file
/// The dialogs' skin record, Orvane::DialogSkinStyle, and the current skin.

/// @class Orvane::DialogSkinStyle
/// The looks of the library's dialogs, chosen by a skin number.
///
/// Skin 2 is the dark skin; every other number is light. Skins 3 and 4 are
/// light skins whose message-box buttons differ. A default-constructed record
/// holds the light values; dialogSkinStyle() returns the record of a skin by
/// value (the strings are implicitly shared, so copies are cheap).
///
/// The process keeps one current skin for dialogs that take none as an
/// argument (the message box). It starts at 2, so a host that never sets it
/// gets dark message boxes. GUI thread only: it is a plain int.
///
/// Readability: every text has a contrast ratio of at least 4.5:1 with what
/// lies behind it (WCAG 2.x). Colours that did not pass were replaced by the
/// nearest shade of the same hue that does (old -> new, ratio old -> new):
/// - dark skin, message text on `#2E2F30`: `#333333` -> `#CCCCCC` (1.06 -> 8.35);
///   check-box text: `#666666` -> `#AAAAAA` (2.34 -> 5.77); the light skins keep
///   `#333333` (12.63) and `#666666` (5.74);
/// - dark skin buttons: the fill behind white text `#8273FF` -> `#6C5AFF`
///   (3.59 -> 4.62); the ring buttons' text and ring on the panel
///   `#8273FF` -> `#9588FF` (3.73 -> 4.63);
/// - light primary gradient `#5C8BFF`/`#9A68FF` -> `#2B68FF`/`#884DFF` (3.19/3.62 ->
///   4.64/4.61); hover `#80A4FF`/`#BB99FF` -> `#2D68FF`/`#884DFF` (2.42/2.30 ->
///   4.63/4.61); pressed `#4D7AE9`/`#976EEA` -> `#3C6DE7`/`#8757E7` (3.98/3.66 ->
///   4.63/4.62); the ring's text and ring `#5C8BFF` -> `#2B68FF` (3.19 -> 4.64);
/// - skin 3 `#2782FF` -> `#006BFF` (3.67 -> 4.62); skin 4 `#8372FF` -> `#6D5AFF`
///   (3.61 -> 4.61), as fill behind white text and as text on white.
///
/// @code{.cpp}
/// const Orvane::DialogSkinStyle dark = Orvane::dialogSkinStyle(2);
/// panel->setStyleSheet(dark.contentStyle);
/// Orvane::setCurrentDialogSkin(1); // light message boxes from now on
/// @endcode
///
/// @guithread for the current skin; the record itself is a plain value that
/// any thread may copy.
///
/// @par Binary compatibility:
/// A plain value returned by value: its fields are fixed, in this order,
/// through 1.x (no d-pointer; hosts keep copies on their stack). Looks a
/// later version needs go into a new record type, never into this one.

#include <Orvane/orvane_export.h>

#include <QString>

namespace Orvane {

struct ORVANE_EXPORT DialogSkinStyle
{
    /// The light skin's values.
    DialogSkinStyle();

    // Message box.
    QString primaryButtonStyle;   ///< Style sheet of the message box's highlighted button.
    QString secondaryButtonStyle; ///< Style sheet of every other message-box button.
    QString headingStyle;         ///< Style sheet of the message box's bold heading.
    QString iconTint;             ///< Colour the message-box icon is recoloured to; empty: none.

    // Bar dialog and Mac-style dialog.
    int barHeight;                ///< Height of the bar dialog's bar, pixels.
    int closeButtonSize;          ///< Side of the square close button, pixels.
    int barIconSize;              ///< Side of the square bar icon, pixels.
    QString titleStyle;           ///< Style sheet of the title; empty: the title label stays unstyled.
    QString barStyle;             ///< Style sheet of the lower, painted bar.
    QString barOverlayStyle;      ///< Style sheet of the upper, transparent bar.
    QString closeButtonStyle;     ///< Style sheet of the close button.
    QString contentStyle;         ///< Style sheet of the content area.
    QString dialogBackground;     ///< Background colour name of the Mac-style dialog; empty: none.
};

/// The record of `skin`: 2 dark, 3 and 4 light with their own buttons,
/// anything else light (so no value is wrong).
/// @anythread
ORVANE_EXPORT DialogSkinStyle dialogSkinStyle(int skin);

/// The process-wide skin of dialogs that take none as an argument; initially 2.
/// @guithread
ORVANE_EXPORT int currentDialogSkin();
/// Sets the process-wide skin; any int is accepted (see dialogSkinStyle()).
/// @guithread
ORVANE_EXPORT void setCurrentDialogSkin(int skin);

} // namespace Orvane

#endif // ORVANE_DIALOGSKINSTYLE_H
