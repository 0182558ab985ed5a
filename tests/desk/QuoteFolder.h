// QuoteFolder: a fixture with a temporary folder for quotes.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>

namespace orvan::test {

/// One good product, one without a price, and one without both.
inline const QByteArray kQuote = R"({"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n",
 "date": "2026-11-20", "products": "3~Lamp:::5:1:0:5:~Desk:::0:1:0:0:~ :::0:1:0:0:~"})";

class QuoteFolder : public testing::Test {
protected:
    QString path(const std::string& name) const { return QString::fromStdString((folder / name).string()); }
    /// Returns the file's path.
    QString write(const std::string& name, const QByteArray& bytes = kQuote) const
    {
        std::filesystem::create_directories((folder / name).parent_path());
        writeText(folder / name, bytes.toStdString());
        return path(name);
    }

    TemporaryFolder folder;
};

} // namespace orvan::test
