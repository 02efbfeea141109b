#include "pages.h"

#include "gallerywindow.h"

void addGalleryPages(GalleryWindow &window)
{
    window.addPage(makeFoundationPage());
    window.addPage(makeLabelsPage());
    window.addPage(makeLanguagePage());
    window.addPage(makeLinksPage());
}
