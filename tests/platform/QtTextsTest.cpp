#include "platform/qt/QtTexts.h"

#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace ornivane {
namespace {

TEST(QtTexts, ButtonsOfMessageBoxesSpeakTheLanguageOfTheProgram) {
    const auto no = [] {
        return QMessageBox(QMessageBox::NoIcon, "", "", QMessageBox::No).button(QMessageBox::No)->text();
    };
    QtTexts texts;
    for (const auto& [english, expected] :
         {std::pair{true, "&No"}, {false, "&Nein"}, {false, "&Nein"}, {true, "&No"}}) {
        texts.SetLanguage(english);
        EXPECT_EQ(no(), expected);
    }
}

} // namespace
} // namespace ornivane
