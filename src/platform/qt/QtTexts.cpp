#include "platform/qt/QtTexts.h"

#include <QCoreApplication>
#include <QFile>

// Lies in a static library, where nothing registers it by itself. Not inside a namespace: the macro declares
// a function of the global one.
static void RegisterTranslations() { Q_INIT_RESOURCE(translations); }

namespace ornivane {

void QtTexts::SetLanguage(const Language& language) {
    RegisterTranslations();
    const QString file = QString(":/translations/qtbase_%1.qm").arg(language.Code());
    if (file == spoken) return;
    spoken = file;
    QCoreApplication::removeTranslator(&translator);
    // Qt's own texts are English: there is no file of them.
    if (QFile::exists(file) && translator.load(file)) QCoreApplication::installTranslator(&translator);
}

} // namespace ornivane
