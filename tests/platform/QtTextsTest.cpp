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
    Language language;
    for (const auto& [english, expected] :
         {std::pair{1, "&No"}, {0, "&Nein"}, {0, "&Nein"}, {1, "&No"}, {0, "&Nein"}}) {
        language.EnglishUI = static_cast<std::int16_t>(english);
        texts.SetLanguage(language);
        EXPECT_EQ(no(), expected);
    }
}

} // namespace
} // namespace ornivane
