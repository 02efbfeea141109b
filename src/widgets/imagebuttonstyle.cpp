#include <Orvane/imagebuttonstyle.h>

namespace Orvane {

ImageButtonStyle::ImageButtonStyle()
    : QObject(nullptr),
      bgMargins(0, 0, 0, 0),
      iconSize(0, 0),
      hoverCursor(false),
      radius(0),
      borderWidth(0),
      margins(2, 2, 2, 2),
      fixedSize(-1, -1),
      minimumSize(-1, -1)
{
    for (int i = 0; i < 4; ++i)
        textColors.append(QColor(Qt::black));
}

ImageButtonStyle::~ImageButtonStyle() = default;

} // namespace Orvane
