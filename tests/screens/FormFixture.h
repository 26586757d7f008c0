#pragma once

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/SurfaceWidget.h"
#include "support/FlightFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/TestCharts.h"
#include "support/Widgets.h"

namespace ornivane {

// A real form off screen, on a program folder, and what a hand does to its controls.
template <typename Store>
class FormOn : public testing::Test, protected Store {
protected:
    template <typename Widget>
    Widget& Find(const char* name) {
        return In<Widget>(*Front, name);
    }
    std::string Text(const char* name) {
        return Find<QWidget>(name).property("text").toString().toStdString();
    }
    // Of several controls, to be compared as a list.
    std::vector<std::string> Texts(std::initializer_list<const char*> names) {
        std::vector<std::string> texts;
        for (const char* name : names) texts.push_back(Text(name));
        return texts;
    }
    bool Shows(const char* name) { return Find<QWidget>(name).isVisible(); }
    void Click(const char* name) { ClickOn(Find<QWidget>(name)); }
    void WriteCharts(const QImage& chart, std::initializer_list<const char*> names) {
        for (const char* name : names)
            chart.save(QString::fromStdString((this->Folder.Path() / "Karten" / name).string()), nullptr,
                       100);
    }
    static QImage WhiteChart() {
        QImage chart(2000, 1000, QImage::Format_RGB32);
        chart.fill(Qt::white);
        return chart;
    }
    template <typename Form>
    Form& Show(Form& form, int width = 1024, int height = 640) {
        form.resize(width, height);
        form.show();
        form.Form_Activate();
        return form;
    }

    QWidget* Front = nullptr; // the form whose controls are meant
    QtNotice Notices;
    EventGuard Guard{Notices, this->Shared};
    TestCharts Charts;
};

using FormTest = FormOn<FlightFolder>;

} // namespace ornivane
