#pragma once

#include <QFrame>

#include "base/Readout.h"

class QLabel;

namespace ornivane {

// A value with its caption and unit, readable at arm's length: tabular figures in a place that does not move
// when the value changes its length.
class ReadoutLabel : public QFrame {
    Q_OBJECT

public:
    enum class Size { Medium, Wide, Large };

    // The object names of its labels.
    struct Names {
        const char *Value, *Unit;
    };
    ReadoutLabel(const Names& names, Size size, QWidget* parent = nullptr);

    void SetCaption(const QString& text);
    void Show(const QString& value, const QString& unit = {});
    // The unit also shows while there is no number.
    void Show(const Readout& readout, const LocaleText& locale);

signals:
    void Clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QLabel *caption, *value = nullptr, *unit;
};

} // namespace ornivane
