// What the trace log's tests share: a directory of their own, a message box that keeps what it is
// shown, and the written lines without time and thread.
#pragma once

#include "components/TraceLog.h"
#include "core/modInit.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include <unistd.h>

namespace orvan {

class KeepingMessageBox final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& message) override
    {
        shown.push_back(message);
        return ui::MessageResult::ok;
    }

    std::vector<ui::Message> shown;
};

struct TraceLine {
    std::string thread;
    std::string rest;
};

inline std::vector<TraceLine> linesOf(const std::filesystem::path& file)
{
    static const std::regex layout(R"((\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}) (\d+) (.*))");
    std::vector<TraceLine> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(line, parts, layout)) << line;
        lines.push_back({parts[2], parts[3]});
    }
    return lines;
}

class TraceLogTest : public testing::Test {
protected:
    TraceLogTest()
    {
        std::string name = testing::TempDir() + "orvan-trace-XXXXXX";
        directory = ::mkdtemp(name.data());
        options.file = directory / "trace.log";
        options.report = [this](std::string_view text) { reports.emplace_back(text); };
    }
    ~TraceLogTest() override { std::filesystem::remove_all(directory); }

    std::shared_ptr<Trace> makeTrace()
    {
        return std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messageBox)());
    }

    std::filesystem::path directory;
    TraceLogOptions options;
    std::vector<std::string> reports;
    KeepingMessageBox messageBox;
};

} // namespace orvan
