#include "platform/qt/QtSystem.h"

#include <QDesktopServices>
#include <QEventLoop>
#include <QLocale>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QProcess>
#include <QTimer>
#include <QUrl>
#include <charconv>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace ornivane {

namespace fs = std::filesystem;

std::optional<std::string> QtWeb::Fetch(const std::string& address, int milliseconds) {
    QNetworkAccessManager manager;
    QNetworkRequest request{QUrl(QString::fromStdString(address))};
    request.setTransferTimeout(milliseconds);
    QNetworkReply* reply = manager.get(request);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    // The transfer timeout starts anew with every byte; a server that drips must not hold the program.
    QTimer::singleShot(milliseconds, reply, &QNetworkReply::abort);
    if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (reply->error() != QNetworkReply::NoError) return std::nullopt;
    constexpr qint64 longestText = 1 << 16;
    return reply->read(longestText).toStdString();
}

void QtShell::Open(const std::string& address) {
    QDesktopServices::openUrl(QUrl::fromUserInput(QString::fromStdString(address)));
}

bool QtProcesses::Start(const fs::path& program) {
    return QProcess::startDetached(QString::fromStdString(program.string()), {});
}

namespace {

// By device and inode: a program elsewhere with the same name is another one.
bool RunsThisProgram(const fs::path& process) {
    struct stat own {};
    struct stat other {};
    if (stat("/proc/self/exe", &own) != 0 || stat((process / "exe").c_str(), &other) != 0) return false;
    return own.st_dev == other.st_dev && own.st_ino == other.st_ino;
}

} // namespace

void QtProcesses::EndSiblings() {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc", error)) {
        const std::string name = entry.path().filename().string();
        int process = 0;
        const auto [end, failed] = std::from_chars(name.data(), name.data() + name.size(), process);
        if (failed != std::errc() || end != name.data() + name.size() || process == getpid()) continue;
        struct stat folder {};
        if (stat(entry.path().c_str(), &folder) != 0 || folder.st_uid != getuid()) continue;
        if (RunsThisProgram(entry.path())) kill(process, SIGTERM);
    }
}

LocaleText ReadSystemLocale() {
    const QLocale locale = QLocale::system();
    LocaleText text;
    text.DecimalSeparator = locale.decimalPoint() == "," ? ',' : '.';
    for (int month = 1; month <= 12; ++month)
        text.ShortMonths[static_cast<std::size_t>(month - 1)] =
            locale.standaloneMonthName(month, QLocale::ShortFormat).toStdString();
    return text;
}

} // namespace ornivane
