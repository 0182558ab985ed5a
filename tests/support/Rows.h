// Rows: the tables of the tests. A row is a struct with a name, or with a text that says as much, or a plain text. A
// row that fails prints it, and the rows after it still run.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <gtest/gtest.h>

namespace orvan::test {

/// A row that needs no other name: a text, and what comes of it.
struct Example {
    const char *text, *result;
};

/// Runs `test` for each row. ASSERT_... and exceptions end the row and not the table.
template <class Table, class Test>
void forEachRow(const Table& table, const Test& test)
{
    for (const auto& row : table) {
        testing::Message name;
        name << "row: ";
        if constexpr (requires { row.name; }) {
            name << row.name;
        } else if constexpr (requires { row.text; }) {
            name << row.text;
        } else {
            name << row;
        }
        SCOPED_TRACE(name);
        try {
            test(row);
        } catch (...) {
            ADD_FAILURE() << "error " << currentError().number() << ": " << currentError().text();
        }
    }
}

} // namespace orvan::test
