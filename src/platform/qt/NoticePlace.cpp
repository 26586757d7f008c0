#include "platform/qt/NoticePlace.h"

#include <QDialog>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <algorithm>

#include "base/Flagged.h"
#include "platform/qt/QtNotice.h"

namespace ornivane {

namespace {

void SetBottomMargin(QLayout& layout, int pixels) {
    QMargins margins = layout.contentsMargins();
    margins.setBottom(pixels);
    layout.setContentsMargins(margins);
}

} // namespace

NoticePlace::NoticePlace(QtNotice& noticeOf, QWidget& hostOf)
    : QObject(&noticeOf), notice(noticeOf), host(hostOf),
      ownMargin(hostOf.layout()->contentsMargins().bottom()) {
    notice.setParent(&host);
    notice.hide();
    notice.installEventFilter(this);
    host.installEventFilter(this);
}

bool NoticePlace::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool concernsHost = type == QEvent::Resize || type == QEvent::LayoutRequest;
    const bool concernsNotice = type == QEvent::ShowToParent || type == QEvent::HideToParent ||
                                type == QEvent::ContentsRectChange || type == QEvent::FontChange;
    if (watched == &host) {
        if (concernsHost) Place();
    } else if (concernsNotice) {
        PlaceSoon();
    }
    return false;
}

// A notice may come from the middle of a redraw, and a map that became lower there would be drawn half for
// the one size and half for the other.
void NoticePlace::PlaceSoon() {
    QMetaObject::invokeMethod(
        this, [this] { Place(); }, Qt::QueuedConnection);
}

int NoticePlace::HeightOfNotice() const {
    if (!notice.isVisibleTo(&host)) return 0;
    return std::max(notice.minimumHeight(), notice.heightForWidth(host.width()));
}

// The least that they can do with.
int NoticePlace::HeightOfContents() const {
    const QLayout& layout = *host.layout();
    const int least = layout.hasHeightForWidth() ? layout.totalMinimumHeightForWidth(host.width())
                                                 : layout.totalMinimumSize().height();
    return least - layout.contentsMargins().bottom() + ownMargin;
}

bool NoticePlace::HasRoom() const {
    const int growth = qobject_cast<QDialog*>(&host) ? MostGrowth() : 0;
    return HeightOfContents() + HeightOfNotice() <= host.height() - grown + growth;
}

void NoticePlace::Place() {
    if (placing || !host.layout()) return;
    const Flagged now(placing);
    const int needed = HeightOfNotice(), contents = HeightOfContents();
    const int own = host.height() - grown; // without what the notice added
    const int by = qobject_cast<QDialog*>(&host) ? std::clamp(contents + needed - own, 0, MostGrowth()) : 0;
    SetBottomMargin(*host.layout(), ownMargin + std::clamp(own + by - contents, 0, needed));
    host.layout()->activate();
    if (by != grown) Grow(own + by);
    grown = by;
    if (needed == 0) return;
    notice.setGeometry(0, host.height() - needed, host.width(), needed);
    notice.raise();
}

int NoticePlace::MostGrowth() const {
    const int own = host.frameGeometry().height() - grown;
    return std::max(0, host.screen()->availableGeometry().height() - own);
}

void NoticePlace::Grow(int height) {
    host.resize(host.width(), height);
    const QRect free = host.screen()->availableGeometry();
    const int below = host.frameGeometry().bottom() - free.bottom();
    if (below > 0) host.move(host.x(), std::max(free.top(), host.y() - below));
}

} // namespace ornivane
