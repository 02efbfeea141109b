#ifndef ORVANE_MACDIALOG_H
#define ORVANE_MACDIALOG_H

// A plain dialog with the platform's own frame that stays on top and takes
// only its background from the skin: in the dark skin (2) the skin's colour
// and a thin dark top border, in every other skin nothing. It has no drawn
// bar, no content widget and no dragging; the host lays out the dialog
// itself. Ownership follows QDialog (parent, or the caller when null).

#include <Orvane/orvane_export.h>

#include <QDialog>

namespace Orvane {

class ORVANE_EXPORT MacDialog : public QDialog
{
    Q_OBJECT

public:
    // The caller's flags are honoured, with Qt::WindowStaysOnTopHint added.
    explicit MacDialog(QWidget *parent = nullptr, int skin = 2,
                       Qt::WindowFlags flags = Qt::WindowFlags());
    ~MacDialog() override;

private:
    Q_DISABLE_COPY(MacDialog)
};

} // namespace Orvane

#endif // ORVANE_MACDIALOG_H
