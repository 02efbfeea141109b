#include "orvanewidgetplugin.h"

#include <utility>

OrvaneWidgetPlugin::OrvaneWidgetPlugin(Description description, QObject *parent)
    : QObject(parent),
      m_description(std::move(description))
{
}

QString OrvaneWidgetPlugin::name() const
{
    return m_description.name;
}

// Every widget of the library sits in one group of the widget box.
QString OrvaneWidgetPlugin::group() const
{
    return QStringLiteral("Orvane");
}

QString OrvaneWidgetPlugin::toolTip() const
{
    return m_description.toolTip;
}

QString OrvaneWidgetPlugin::whatsThis() const
{
    return m_description.whatsThis;
}

QString OrvaneWidgetPlugin::includeFile() const
{
    return m_description.includeFile;
}

QIcon OrvaneWidgetPlugin::icon() const
{
    if (m_icon.isNull() && m_description.icon)
        m_icon = m_description.icon();
    return m_icon;
}

bool OrvaneWidgetPlugin::isContainer() const
{
    return false;
}

QWidget *OrvaneWidgetPlugin::createWidget(QWidget *parent)
{
    return m_description.create ? m_description.create(parent) : nullptr;
}

bool OrvaneWidgetPlugin::isInitialized() const
{
    return m_initialized;
}

void OrvaneWidgetPlugin::initialize(QDesignerFormEditorInterface *core)
{
    Q_UNUSED(core)
    m_initialized = true;
}

QString OrvaneWidgetPlugin::domXml() const
{
    return m_description.domXml;
}
