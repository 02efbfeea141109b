#ifndef ORVANE_ORVANEDESIGNERWIDGETS_H
#define ORVANE_ORVANEDESIGNERWIDGETS_H

// The Designer plugin: offers ImageButton (with the default stock style),
// ElidedLabel and RotationLabel in the widget box's group "Orvane". Designer
// loads it from its "designer" plugin folder; a form that uses the widgets
// compiles against the installed headers (<Orvane/...>) and links Orvane.

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QList>
#include <QObject>

class OrvaneDesignerWidgets : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit OrvaneDesignerWidgets(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface *> m_widgets;
};

#endif // ORVANE_ORVANEDESIGNERWIDGETS_H
