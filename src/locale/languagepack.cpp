#include <Orvane/languagepack.h>

#include "languagepack_p.h"

#include <Orvane/applocale.h>
#include <Orvane/startup.h>

#include <QCoreApplication>
#include <QDebug>
#include <QSettings>
#include <QTranslator>
#include <QVariant>

namespace Orvane {

namespace {

const char languageKey[] = "Language";

struct TranslationState
{
    QString lastRequested;             // null until the first call
    QTranslator *translator = nullptr; // owned, installed
};

// Created on first use and kept until the process ends: the installed
// translator must outlive every call.
TranslationState &translationState()
{
    static TranslationState *state = new TranslationState;
    return *state;
}

QString &languageString()
{
    static QString *language = new QString;
    return *language;
}

} // namespace

QTranslator *installedLanguageTranslator()
{
    return translationState().translator;
}

QString getCurrentLocalePackName()
{
    const QString stored = QSettings().value(QLatin1String(languageKey), QVariant()).toString();
    if (!stored.isEmpty())
        return stored;
    return localePackName(QLocale::system());
}

void setCurrentLocale(QLocale locale)
{
    const QString name = localePackName(locale);
    QSettings settings;
    settings.setValue(QLatin1String(languageKey), name);
    settings.sync();
}

QString languageFileNameToPath(const QString &name)
{
    return QLatin1String(":/Orvane/") + name + QLatin1String(".qm");
}

void freshLanguage(const QString &fileName)
{
    TranslationState &state = translationState();
    // Null and empty compare equal, so an empty name as the very first call
    // stops here and no system pack is loaded; that is kept on purpose.
    if (fileName == state.lastRequested)
        return;

    ensureOrvaneResources();

    if (state.translator) {
        QCoreApplication::removeTranslator(state.translator);
        delete state.translator;
        state.translator = nullptr;
    }

    QString name = fileName;
    if (name.isEmpty()) {
        name = localePackName(QLocale::system());
        qDebug().noquote().nospace() << "fileName: " << name;
    }
    if (name.isEmpty())
        return;

    // Installed even when loading fails: an empty translator is harmless and
    // keeps "one translator of ours is installed" true after every call.
    state.translator = new QTranslator;
    const bool loaded = state.translator->load(languageFileNameToPath(name));
    Q_UNUSED(loaded)
    QCoreApplication::installTranslator(state.translator);

    state.lastRequested = fileName;
}

void setlanguage(QString language)
{
    languageString() = language;
}

QString getlanguage()
{
    return languageString();
}

} // namespace Orvane
