// Rows: what a user does with the desk, beside the same with a small program of Qt's own widgets.
#pragma once

#include "benchmarks/Bound.h"
#include "benchmarks/felt/Actor.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvan::felt {

/// Does once what is measured, and returns nanoseconds.
using Sampler = std::function<double()>;

struct Side {
    std::string name; ///< Stands in the table beside the peer's figure; empty for our side.
    std::function<Sampler(const Stage&)> prepare;
};

struct Claim {
    bench::Bound bound;
    bool percentile99 = false; ///< The bound is about the 99th percentile of the samples, not about their median.
};

struct Row {
    std::string name;
    std::vector<Claim> claims; ///< About the same samples.
    Side ours, peer;
    int samples; ///< Of each side.
    int block;   ///< How many follow each other before it is the other side's turn.
};

struct Programs {
    std::filesystem::path desk;                      ///< What is measured.
    std::filesystem::path peer;                      ///< The program of Peer.cpp.
    std::optional<std::filesystem::path> formerDesk; ///< Takes the peers' place where it is given.
};

/// `folder` gets the quotes and the home directory that the desks are started with; a desk is started to fill it, on
/// `screen`.
std::vector<Row> makeRows(const Programs& programs, Screen& screen, const std::filesystem::path& folder);

} // namespace orvan::felt
