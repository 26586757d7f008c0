#pragma once

#include <QObject>

class QWidget;

namespace ornivane {

class QtNotice;

// Keeps a notice at the bottom of a window, as high as its lines need, with nothing of the window under it:
// the window's contents give way as far as they can, and then a dialog grows. Only a main window that is too
// small for both loses its lowest rows to the notice, until a click takes that away.
class NoticePlace : public QObject {
public:
    // The host has a layout. The notice becomes its child; both are watched from now on.
    NoticePlace(QtNotice& noticeOf, QWidget& hostOf);

    // There is room for the text that the notice has now, without covering anything.
    bool HasRoom() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();
    void PlaceSoon();
    void Grow(int height);
    int MostGrowth() const;
    int HeightOfContents() const;
    int HeightOfNotice() const;

    QtNotice& notice;
    QWidget& host;
    int ownMargin; // of the host's layout at the bottom, without a notice
    int grown = 0; // pixels by which the dialog is higher for the notice
    bool placing = false;
};

} // namespace ornivane
