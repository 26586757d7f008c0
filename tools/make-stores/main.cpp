// Makes the empty stores of a portable folder. What is there already is never touched.

#include <filesystem>
#include <iostream>
#include <string_view>
#include <vector>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "store/Schema.h"

namespace {

using ornivane::StoreKind;

constexpr const char* Usage =
    "make-stores FOLDER [--only data|track|Luftraum|ovdata]...\n"
    "Makes the empty stores data.ovd and track.ovd in a folder, or those that are named. The stores\n"
    "of airspace (Luftraum) and airfields (ovdata) are usually filled by other tools. A store that is\n"
    "there already stays as it is. Exit status: 0 all are there, 1 one could not be made, 2 wrong call.\n";

bool KindOf(std::string_view name, StoreKind& kind) {
    for (const StoreKind each :
         {StoreKind::Data, StoreKind::Track, StoreKind::Luftraum, StoreKind::Airfields}) {
        const std::string_view file = ornivane::StoreFileName(each);
        if (file.substr(0, file.find('.')) != name) continue;
        kind = each;
        return true;
    }
    return false;
}

bool Parse(const std::vector<std::string_view>& arguments, std::string_view& folder,
           std::vector<StoreKind>& kinds) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        StoreKind kind{};
        if (arguments[i] == "--only" && i + 1 < arguments.size() && KindOf(arguments[i + 1], kind)) {
            kinds.push_back(kind);
            ++i;
        } else if (arguments[i].starts_with("-") || !folder.empty()) {
            return false;
        } else {
            folder = arguments[i];
        }
    }
    if (kinds.empty()) kinds = {StoreKind::Data, StoreKind::Track};
    return !folder.empty();
}

bool Make(const std::filesystem::path& file, StoreKind kind) {
    if (std::filesystem::exists(file)) {
        std::cout << file.string() << ": is there\n";
        return true;
    }
    try {
        ornivane::CreateStore(file, kind);
        std::cout << file.string() << ": made\n";
        return true;
    } catch (const ornivane::RuntimeError& error) {
        std::cerr << ornivane::DescribeError(error, ornivane::Language::English()) << '\n';
        return false;
    }
}

} // namespace

int main(int count, char** values) {
    std::string_view folder;
    std::vector<StoreKind> kinds;
    if (!Parse({values + 1, values + count}, folder, kinds)) {
        std::cerr << Usage;
        return 2;
    }
    bool allThere = true;
    for (const StoreKind kind : kinds)
        allThere = Make(std::filesystem::path(folder) / ornivane::StoreFileName(kind), kind) && allThere;
    return allThere ? 0 : 1;
}
