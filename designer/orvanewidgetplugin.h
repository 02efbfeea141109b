#ifndef ORVANE_ORVANEWIDGETPLUGIN_H
#define ORVANE_ORVANEWIDGETPLUGIN_H

// One of the library's widgets as Designer offers it in its widget box: the
// class name, the public header a form's generated code includes, the
// widget-box entry (icon, tool tip, "What's this"), the XML Designer drops
// into a form, and a factory that builds the widget inside Designer. The
// widget collection (OrvaneDesignerWidgets) makes one per widget; nothing
// here knows a particular widget.

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

class OrvaneWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    struct Description
    {
        QString name;        // the class, qualified: "Orvane::ImageButton"
        QString includeFile; // "<Orvane/imagebutton.h>"
        QString toolTip;
        QString whatsThis;
        QString domXml;
        std::function<QIcon()> icon; // drawn when Designer first asks
        std::function<QWidget *(QWidget *parent)> create;
    };

    OrvaneWidgetPlugin(Description description, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface *core) override;
    QString domXml() const override;

private:
    Description m_description;
    mutable QIcon m_icon;
    bool m_initialized = false;
};

#endif // ORVANE_ORVANEWIDGETPLUGIN_H
