#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "platform/Dialogs.h"
#include "store/Connection.h"
#include "store/Recordset.h"

namespace ornivane {

// The last change or deletion of a screen, offered in the notice to be taken back: until the next one, or
// until the screen is left. So nothing needs to ask before it deletes, and nothing that was entered is lost.
class Undo {
public:
    struct Deed {
        Bilingual Done; // %1: with what
        std::string Name;
        Connection& Store;
        // Makes the store what it was, in one transaction with everything that it writes. When the store
        // refuses, nothing of it is done, the notice says why, and it can be tried again.
        std::function<void()> TakeBack;
        std::function<void()> Show; // afterwards: reads the lists again
    };

    // `stateChanged`: runs after an undo, to show the state.
    Undo(Notice& bar, const Language& shownIn, std::function<void()> stateChanged);
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;

    // The name of the current row for the texts of a deed, short enough for the notice.
    static std::string NameOf(const Recordset& rows, const char* field = "Name");

    void Offer(Deed done);
    bool Stands() const { return deed.has_value(); } // an offer can still be taken
    // Something was done that cannot be taken back: says so, and ends the offer before.
    void Refuse(const char* german, const char* english);
    // The screen is left.
    void Withdraw();
    // The notice in the language of this moment.
    void ApplyLanguage();

private:
    void Run();
    void ShowOffer(const std::string& text);
    std::string Failure(const RuntimeError& error) const;

    Notice& notices;
    const Language& language;
    std::function<void()> changed;
    std::optional<Deed> deed;
};

} // namespace ornivane
