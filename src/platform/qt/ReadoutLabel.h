#pragma once

#include <QFrame>

class QLabel;

namespace ornivane {

// A value with its caption and unit, readable at arm's length: tabular figures in a place that does not move
// when the value changes its length.
class ReadoutLabel : public QFrame {
    Q_OBJECT

public:
    enum class Size { Medium, Wide, Large };

    // The object names of the labels of value and unit.
    ReadoutLabel(const char* valueName, const char* unitName, Size size, QWidget* parent = nullptr);

    void SetCaption(const QString& text);
    void Show(const QString& value, const QString& unit = {});

signals:
    void Clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QLabel *caption, *value = nullptr, *unit;
};

} // namespace ornivane
