#include <Orvane/macdialog.h>

#include <Orvane/dialogskinstyle.h>

namespace Orvane {

MacDialog::MacDialog(QWidget *parent, int skin, Qt::WindowFlags flags)
    : QDialog(parent, flags | Qt::WindowStaysOnTopHint)
{
    setAutoFillBackground(true);
    const QString background = dialogSkinStyle(skin).dialogBackground;
    if (!background.isEmpty())
        setStyleSheet(QStringLiteral("QDialog{background: %1; border-top:1px solid #0F0F10;}").arg(background));
}

MacDialog::~MacDialog() = default;

} // namespace Orvane
