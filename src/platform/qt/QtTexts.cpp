#include "platform/qt/QtTexts.h"

#include <QCoreApplication>

// Lies in a static library, where nothing registers it by itself. Not inside a namespace: the macro declares
// a function of the global one.
static void RegisterTranslations() { Q_INIT_RESOURCE(translations); }

namespace ornivane {

void QtTexts::SetLanguage(bool english) {
    if (installed == !english) return;
    if (german.isEmpty()) {
        RegisterTranslations();
        if (!german.load(":/translations/qtbase_de.qm")) return;
    }
    if (english)
        QCoreApplication::removeTranslator(&german);
    else
        QCoreApplication::installTranslator(&german);
    installed = !english;
}

} // namespace ornivane
