#ifndef GALLERY_PALETTE_H
#define GALLERY_PALETTE_H

#include <QString>

// The gallery's colours, each named once. Its style sheets and rich text
// name them as @name@ and pass through themed(): @darkPanel@ (the library's
// own dark-skin background), @darkHover@, @page@, @frame@, @field@,
// @onDark@, @ink@, @note@, @muted@ and @accent@.
QString themed(QString text);

#endif // GALLERY_PALETTE_H
