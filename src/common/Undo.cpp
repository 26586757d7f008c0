#include "common/Undo.h"

#include "base/Strings.h"

namespace ornivane {

Undo::Undo(Notice& bar, const Variablen& variablen, std::function<void()> stateChanged)
    : notices(bar), shared(variablen), changed(std::move(stateChanged)) {}

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
    notices.Show(shared.Text(german, english));
}

void Undo::Withdraw() {
    if (!deed) return;
    deed.reset();
    notices.Withdraw();
}

void Undo::ApplyLanguage() {
    if (deed) ShowOffer(shared.EnglishUI == 1 ? deed->English : deed->German);
}

// The & marks the letter that presses the button together with Alt.
void Undo::ShowOffer(const std::string& text) {
    notices.Offer(text, shared.Text("&rückgängig", "&undo"), [this] { Run(); });
}

void Undo::Run() {
    if (!deed) return;
    try {
        Transaction transaction(deed->Store);
        deed->TakeBack();
        transaction.Commit();
    } catch (const RuntimeError& error) {
        ShowOffer(Failure(error));
        return;
    }
    const auto show = std::move(deed->Show);
    Withdraw();
    try {
        show();
    } catch (const RuntimeError& error) {
        notices.Show(DescribeError(error, shared.EnglishUI == 1)); // what is stored is stored
    }
    if (changed) changed();
}

std::string Undo::Failure(const RuntimeError& error) const {
    return (shared.EnglishUI == 1 ? deed->English + ", not undone: "
                                  : deed->German + ", nicht rückgängig gemacht: ") +
           DescribeError(error, shared.EnglishUI == 1);
}

} // namespace ornivane
