// Applies the statements of a file to a store, all or none: the demo's first contents.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include <sqlite3.h>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "store/Connection.h"

int main(int count, char** values) {
    if (count != 3) {
        std::cerr << "load-demo STORE SQL-FILE\nExit status: 0 done, 1 nothing was changed, 2 wrong call.\n";
        return 2;
    }
    try {
        std::ifstream file(values[2], std::ios::binary);
        if (!file) throw ornivane::RuntimeError(ornivane::ErrorNumber::FileNotFound, values[2]);
        const std::string statements{std::istreambuf_iterator<char>(file), {}};

        ornivane::Connection store;
        store.Open(values[1], ornivane::Connection::Mode::ReadWrite);
        ornivane::Transaction transaction(store);
        if (sqlite3_exec(store.Handle(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw ornivane::RuntimeError(ornivane::ErrorNumber::StoreError, sqlite3_errmsg(store.Handle()));
        transaction.Commit();
        return 0;
    } catch (const ornivane::RuntimeError& error) {
        std::cerr << values[2] << ": " << ornivane::DescribeError(error, ornivane::Language::English())
                  << '\n';
        return 1;
    }
}
