#include "Reading.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace orvan::trace_reader {

namespace {

/// Whether a label is meant by what the user wrote: "cmdNew_Click" or "ProductView::cmdNew_Click".
bool isMeant(std::string_view label, std::string_view written)
{
    if (!label.ends_with(written)) {
        return false;
    }
    label.remove_suffix(written.size());
    return label.empty() || label.ends_with('.') || label.ends_with(':');
}

/// Builds the tree of the call that begins at a place.
class Builder final : public CallWatcher {
public:
    Builder(Tree& tree, const Procedures& procedures, Place root) : tree_(tree), procedures_(procedures), root_(root) {}

    [[nodiscard]] bool complete() const { return complete_; }

    void began(const TraceLine& line, const Call& call, std::size_t depth) override
    {
        const bool isRoot = tree_.nodes.empty() && call.place.file == root_.file && call.place.line == root_.line;
        if (isRoot) {
            tree_.thread = line.thread;
            rootDepth_ = depth;
        }
        if (isRoot || isInside(line.thread)) {
            open_.resize(depth - rootDepth_);
            open_.push_back(tree_.nodes.size());
            tree_.nodes.push_back(
                {.depth = depth - rootDepth_, .text = procedures_[call.procedure].label, .place = call.place});
        }
    }

    void ended(std::uint64_t thread, const Call& call, Ending ending, std::size_t depth) override
    {
        if (!isInside(thread) || depth < rootDepth_) {
            return;
        }
        TreeNode& node = tree_.nodes[open_[depth - rootDepth_]];
        node.total = std::max<std::int64_t>(call.ended - call.entered, 0);
        node.own = std::max<std::int64_t>(node.total - call.children, 0);
        node.errors = call.errors;
        node.ending = ending;
        complete_ = depth == rootDepth_;
    }

    void told(const TraceLine& line, Place place, std::size_t depth) override
    {
        if (isInside(line.thread) && depth > rootDepth_) {
            tree_.nodes.push_back({.kind = line.kind == Kind::error ? TreeNode::Kind::error : TreeNode::Kind::show,
                                   .depth = depth - rootDepth_,
                                   .text = std::string(line.text),
                                   .place = place});
        }
    }

private:
    [[nodiscard]] bool isInside(std::uint64_t thread) const
    {
        return !tree_.nodes.empty() && !complete_ && tree_.thread == thread;
    }

    Tree& tree_;
    const Procedures& procedures_;
    Place root_;
    std::size_t rootDepth_ = 0;
    std::vector<std::size_t> open_; ///< The positions of the nodes of the open calls, by their depth.
    bool complete_ = false;
};

/// Finds where the call begins whose tree is asked for.
class Finder final : public CallWatcher {
public:
    Finder(const TreeChoice& choice, const Procedures& procedures) : choice_(choice), procedures_(procedures) {}

    void began(const TraceLine& /*line*/, const Call& call, std::size_t /*depth*/) override
    {
        if (choice_.line == 0 && !found && isMeant(procedures_[call.procedure].label, choice_.procedure) &&
            ++seen_ == choice_.number) {
            found = call.place;
        }
    }

    std::optional<Place> found;

private:
    const TreeChoice& choice_;
    const Procedures& procedures_;
    std::uint64_t seen_ = 0;
};

/// Gives the lines of all logs to the calls, with `before` before each, until `enough` says so after one.
void read(const std::vector<Log>& logs, Calls& calls,
          const std::function<void(const TraceLine& line, Place place)>& before,
          const std::function<bool(const TraceLine& line, Place place)>& enough)
{
    LineParser parser;
    std::size_t position = 0;
    for (const Log& log : logs) {
        for (const std::filesystem::path& file : log) {
            LineReader lines(file);
            while (const auto text = lines.next()) {
                const Place place{position, lines.number()};
                if (const auto line = parser.parse(*text)) {
                    before(*line, place);
                    calls.add(*line, place);
                    if (enough(*line, place)) {
                        return;
                    }
                }
            }
            ++position;
        }
        calls.endLog();
    }
}

std::optional<Place> findRoot(const std::vector<Log>& logs, const std::vector<std::filesystem::path>& files,
                              const TreeChoice& choice)
{
    const auto isFile = [&](const std::filesystem::path& file) {
        return file == choice.file || file.filename() == choice.file;
    };
    const auto named = choice.file.empty() ? std::prev(files.end()) : std::find_if(files.begin(), files.end(), isFile);
    const auto fileAt = static_cast<std::size_t>(named - files.begin());
    Procedures procedures;
    Finder finder(choice, procedures);
    Calls calls(procedures, finder);
    const auto isLine = [&](Place place) {
        return choice.line > 0 && place.file == fileAt && place.line == choice.line;
    };
    const auto takeOutermost = [&](const TraceLine& line) {
        if (const Call* const outermost = calls.outermost(line.thread)) {
            finder.found = outermost->place;
        }
    };
    read(
        logs, calls,
        [&](const TraceLine& line, Place place) {
            if (isLine(place) && line.kind != Kind::enter) {
                takeOutermost(line); // the line may end the call
            }
        },
        [&](const TraceLine& line, Place place) {
            if (isLine(place) && line.kind == Kind::enter) {
                takeOutermost(line);
            }
            return isLine(place) || finder.found;
        });
    return finder.found;
}

} // namespace

Tree findTree(const std::vector<Log>& logs, const TreeChoice& choice)
{
    Tree tree;
    for (const Log& log : logs) {
        tree.files.insert(tree.files.end(), log.begin(), log.end());
    }
    if (const auto root = findRoot(logs, tree.files, choice)) {
        Procedures procedures;
        Builder builder(tree, procedures, *root);
        Calls calls(procedures, builder);
        read(
            logs, calls, [](const TraceLine& /*line*/, Place /*place*/) {},
            [&](const TraceLine& /*line*/, Place /*place*/) { return builder.complete(); });
        calls.endLog(); // of a call that has not ended
    }
    return tree;
}

} // namespace orvan::trace_reader
