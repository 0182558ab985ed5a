// failedRows: runs the rows of a conformance suite on a subject and tells which fail, without failing the test.
//
// The library tests its conformance suites with it: for each row there is an implementation that breaks this row's
// requirement, and it has to fail this row and no other. Thread: that of the tests.
#pragma once

#include "orvan/testing/Conformance.h"

#include <gtest/gtest-spi.h>

#include <span>
#include <string>
#include <vector>

namespace orvan::testkit {

template <class Subject>
std::vector<std::string> failedRows(std::span<const conformance::Row<Subject>> rows, const Subject& subject)
{
    std::vector<std::string> failed;
    for (const conformance::Row<Subject>& row : rows) {
        testing::TestPartResultArray results;
        {
            const testing::ScopedFakeTestPartResultReporter reporter(&results);
            conformance::run(row, subject);
        }
        for (int i = 0; i < results.size(); ++i) {
            if (results.GetTestPartResult(i).failed()) {
                failed.emplace_back(row.name);
                break;
            }
        }
    }
    return failed;
}

} // namespace orvan::testkit
