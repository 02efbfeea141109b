#include "palette.h"

#include <Orvane/dialogskinstyle.h>

#include <utility>

QString themed(QString text)
{
    static const std::pair<const char *, QString> colours[] = {
        {"@darkPanel@", Orvane::dialogSkinStyle(2).dialogBackground},
        {"@darkHover@", QStringLiteral("#3B3C3D")},
        {"@page@", QStringLiteral("#F4F5FA")},
        {"@frame@", QStringLiteral("#E2E4EC")},
        {"@field@", QStringLiteral("#DADCE3")},
        {"@onDark@", QStringLiteral("#D9D9DE")},
        {"@ink@", QStringLiteral("#23242A")},
        {"@note@", QStringLiteral("#7A7D8A")},
        {"@muted@", QStringLiteral("#9A9AA6")},
        {"@accent@", QStringLiteral("#8273FF")},
    };
    for (const auto &colour : colours)
        text.replace(QLatin1String(colour.first), colour.second);
    return text;
}
