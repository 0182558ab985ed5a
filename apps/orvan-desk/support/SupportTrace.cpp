#include "SupportTrace.h"

#include "orvan/base/RuntimeError.h"

#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace orvan::desk {

namespace {

namespace fs = std::filesystem;

constexpr std::streamoff kMostBytes = std::streamoff{256} * 1024;
constexpr std::string_view kNameStart = "trace-", kNameEnd = ".log";
constexpr std::string_view kLastExit = " exit  KTVOrvanProduct.ProductView::UserControl_Terminate";

/// The process that writes, or has written, "trace-<pid>.log"; 0 for other names, also of parts that were rotated away.
pid_t processOf(const fs::path& log)
{
    const std::string name = log.filename().string();
    if (!name.starts_with(kNameStart) || !name.ends_with(kNameEnd) ||
        name.size() < kNameStart.size() + kNameEnd.size()) {
        return 0;
    }
    pid_t pid = 0;
    const char* const end = name.data() + name.size() - kNameEnd.size();
    const auto [rest, error] = std::from_chars(name.data() + kNameStart.size(), end, pid);
    return error == std::errc() && rest == end && pid > 0 ? pid : 0;
}

bool isGone(pid_t pid)
{
    return ::kill(pid, 0) != 0 && errno == ESRCH;
}

/// The last whole lines of a file.
std::vector<std::string> tailOf(const fs::path& file)
{
    std::vector<std::string> lines;
    std::error_code error;
    if (!fs::is_regular_file(file, error)) { // reading a pipe would wait for its writer
        return lines;
    }
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    const std::streamoff size = stream.tellg();
    const bool cut = size > kMostBytes;
    stream.seekg(cut ? size - kMostBytes : 0);
    std::string line;
    if (cut) {
        std::getline(stream, line); // the rest of a line
    }
    while (std::getline(stream, line)) {
        lines.push_back(std::move(line));
    }
    return lines;
}

/// The logs of a folder, the one that was written to last first.
std::vector<fs::path> logsIn(const fs::path& folder, const fs::path& own)
{
    std::vector<std::pair<fs::file_time_type, fs::path>> logs;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unreadable;
        const bool regular = fs::is_regular_file(entry->symlink_status(unreadable));
        const auto written = entry->last_write_time(unreadable);
        if (regular && !unreadable && processOf(entry->path()) != 0 && entry->path() != own) {
            logs.emplace_back(written, entry->path());
        }
    }
    std::sort(logs.rbegin(), logs.rend());
    std::vector<fs::path> files;
    files.reserve(logs.size());
    for (auto& [written, file] : logs) {
        files.push_back(std::move(file));
    }
    return files;
}

/// "91 Object variable not set [frmProduct]" without what may come from outside.
QString errorForSupport(const QString& error)
{
    static const QRegularExpression form(QStringLiteral(R"(^(-?\d+) (.*?)(?: \[([^\[\]]*)\])?$)"));
    static const QRegularExpression ours(QStringLiteral(R"(^(?:(?:KTV|KTB|Orvn)[A-Za-z]+\.[A-Za-z_.:]+|frmProduct|)"
                                                        R"(ProductView|IcuLocaleService)$)"));
    const QRegularExpressionMatch match = form.match(error);
    if (!match.hasMatch()) {
        return error == u"none" ? error : QStringLiteral("(its text is left out)");
    }
    const std::string_view standard = standardErrorText(match.captured(1).toInt());
    const bool known = match.captured(2).toStdString() == standard;
    QString shown = match.captured(1) + u' ' + (known ? match.captured(2) : QStringLiteral("(its text is left out)"));
    if (ours.match(match.captured(3)).hasMatch()) {
        shown += QStringLiteral(" [%1]").arg(match.captured(3));
    }
    return shown;
}

} // namespace

QString lineForSupport(std::string_view line)
{
    static const QRegularExpression form(
        QStringLiteral(R"(^(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} \d+ +\d+ +)(enter|exit|error|show)( +)(.*)$)"));
    static const QRegularExpression label(QStringLiteral(R"(^KTVOrvanProduct\.[A-Za-z]+::[A-Za-z_]+$)"));
    const QRegularExpressionMatch match =
        form.match(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
    if (!match.hasMatch()) {
        return {};
    }
    const QString kind = match.captured(2), rest = match.captured(4);
    const QString shown = kind == u"error" || kind == u"show" ? errorForSupport(rest)
                          : label.match(rest).hasMatch()      ? rest
                                                              : QStringLiteral("(another procedure)");
    return match.captured(1) + kind + match.captured(3) + shown;
}

TraceExcerpt lastTraceLines(const fs::path& log)
{
    std::vector<std::string> lines = tailOf(log);
    if (static_cast<qsizetype>(lines.size()) < kMostTraceLines) {
        fs::path former = log;
        former.replace_extension(".1.log");
        std::vector<std::string> before = tailOf(former);
        lines.insert(lines.begin(), std::move_iterator(before.begin()), std::move_iterator(before.end()));
    }
    const auto most = std::min<std::size_t>(lines.size(), kMostTraceLines);
    TraceExcerpt excerpt;
    for (auto line = lines.end() - static_cast<std::ptrdiff_t>(most); line != lines.end(); ++line) {
        const QString shown = lineForSupport(*line);
        shown.isEmpty() ? static_cast<void>(++excerpt.leftOut) : static_cast<void>(excerpt.lines << shown);
    }
    return excerpt;
}

std::optional<fs::path> newestTrace(const fs::path& folder, const fs::path& own)
{
    std::vector<fs::path> logs = logsIn(folder, own);
    return logs.empty() ? std::nullopt : std::optional(std::move(logs.front()));
}

std::optional<fs::path> newestCrashTrace(const fs::path& folder, const fs::path& own)
{
    for (fs::path& log : logsIn(folder, own)) {
        if (isGone(processOf(log))) {
            const std::vector<std::string> lines = tailOf(log);
            if (lines.empty() || !lines.back().ends_with(kLastExit)) {
                return std::move(log);
            }
        }
    }
    return std::nullopt;
}

} // namespace orvan::desk
