// Wrong implementations, one for each row of a conformance suite.
#pragma once

#include "orvan/testing/FailedRows.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <iterator>

namespace orvan::test {

template <class Subject>
struct Wrong {
    const char* name; ///< The row that has to catch it.
    Subject subject;
};

/// Each row of the suite has its wrong implementation, which fails that row and no other; the right one fails none.
template <class Subject, std::size_t count, class Table>
void expectEachRowToCatchItsOwn(const conformance::Row<Subject> (&rows)[count], const Subject& right,
                                const Table& wrong)
{
    const std::span<const conformance::Row<Subject>> all(rows);
    EXPECT_THAT(testkit::failedRows(all, right), testing::IsEmpty()) << "of the right one";
    ASSERT_EQ(std::size(wrong), count) << "each row needs a wrong implementation of its own";
    forEachRow(wrong, [&](const auto& each) {
        EXPECT_THAT(testkit::failedRows(all, Subject(each.subject)), testing::ElementsAre(each.name));
    });
}

} // namespace orvan::test
