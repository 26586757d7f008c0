#include "common/Undo.h"

#include "base/Strings.h"

namespace ornivane {

Undo::Undo(Notice& bar, const Language& shownIn, std::function<void()> stateChanged)
    : notices(bar), language(shownIn), changed(std::move(stateChanged)) {}

std::string Undo::NameOf(const Recordset& rows, const char* field) {
    constexpr std::size_t characters = 40;
    return Shortened(rows.TextOrEmpty(field), characters);
}

void Undo::Offer(Deed done) {
    deed.emplace(std::move(done));
    ApplyLanguage();
}

void Undo::Refuse(const char* german, const char* english) {
    Withdraw();
    notices.Show(language.Text(german, english));
}

void Undo::Withdraw() {
    if (!deed) return;
    deed.reset();
    notices.Withdraw();
}

void Undo::ApplyLanguage() {
    if (deed) ShowOffer(deed->Done.In(language, deed->Name));
}

// The & marks the letter that presses the button together with Alt.
void Undo::ShowOffer(const std::string& text) {
    notices.Offer(text, language.Text("&rückgängig", "&undo"), [this] { Run(); });
}

void Undo::Run() {
    if (!deed) return;
    const auto takeBack = [this] {
        Transaction transaction(deed->Store);
        deed->TakeBack();
        transaction.Commit();
    };
    if (const auto error = ErrorOf(takeBack)) return ShowOffer(Failure(*error));
    const auto show = std::move(deed->Show);
    Withdraw();
    // What is stored is stored, also when it cannot be shown.
    if (const auto error = ErrorOf(show)) notices.Show(DescribeError(*error, language));
    if (changed) changed();
}

std::string Undo::Failure(const RuntimeError& error) const {
    return deed->Done.In(language, deed->Name) +
           language.Text(", nicht rückgängig gemacht: ", ", not undone: ") + DescribeError(error, language);
}

} // namespace ornivane
