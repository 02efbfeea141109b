#ifndef ORVANE_DIALOGSKINSTYLE_P_H
#define ORVANE_DIALOGSKINSTYLE_P_H

// The parts of the dialog skins that are not in the public record; their
// literals live in dialogskinstyle.cpp with the record's.

#include <Orvane/dialogskinstyle.h>

namespace Orvane {

// The record of `skin` for a window without a compositor: bar and content
// with square corners, so an opaque panel can fill the window.
DialogSkinStyle opaqueDialogSkinStyle(int skin);

// The message box's message label and check box in `skin`: the dark skin
// has light greys that are readable on its panel.
QString messageTextStyle(int skin);
QString checkBoxStyle(int skin);

} // namespace Orvane

#endif // ORVANE_DIALOGSKINSTYLE_P_H
