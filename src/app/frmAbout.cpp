#include "app/frmAbout.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "app/AboutTexts.h"
#include "app/UpdateCheck.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr int PressHeight = 44; // pixels
// Tabs as high as buttons, the one in front told by its weight as well.
constexpr const char* TabStyle = R"(
QTabBar::tab { min-height: 40px; padding: 0 14px; font-size: 16px; color: palette(text); background: palette(button); border: 2px solid palette(mid); border-top-left-radius: 8px; border-top-right-radius: 8px; }
QTabBar::tab:selected { font-weight: bold; background: palette(base); border-bottom-color: palette(base); }
QTabBar::tab:focus { border-color: palette(highlight); }
QTextBrowser { background: palette(base); color: palette(text); border: 2px solid palette(mid); font-size: 16px; padding: 6px; }
)";

// Links go to the user's browser, never into this window.
QTextBrowser* Page(const char* name, const QString& html, Shell& shell) {
    auto* page = Named(new QTextBrowser, name);
    page->setOpenLinks(false);
    page->setHtml(html);
    QObject::connect(page, &QTextBrowser::anchorClicked, page,
                     [&shell](const QUrl& link) { shell.Open(link.toString().toStdString()); });
    return page;
}

} // namespace

frmAbout::frmAbout(const Language& language, Shell& shell, QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(captions::About.In(language));
    setStyleSheet(TabStyle);
    resize(720, 560);

    auto* title = Named(new QLabel(ProgramName), "lblTitle");
    title->setStyleSheet("font-size: 28px; font-weight: bold");
    auto* version =
        Named(new QLabel(QString("Version ") + QString::fromStdString(ProgramVersion())), "lblVersion");
    version->setStyleSheet("font-size: 18px");
    auto* tabs = Named(new QTabWidget, "tabs");
    for (const AboutPage& page : AboutPages())
        tabs->addTab(Page(page.Name, page.Html.In(language), shell), page.Title.In(language));
    auto* close = Named(new QPushButton(captions::Close.In(language)), "cmdClose");
    close->setToolTip(captions::CloseTip.In(language));
    close->setMinimumHeight(PressHeight);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(version);
    layout->addWidget(tabs, 1);
    layout->addWidget(close, 0, Qt::AlignRight);
}

} // namespace ornivane
