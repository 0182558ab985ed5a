// explained: how the prices of a list and its total came about, as a table and sentences for a terminal.
// Thread: that of the manager. Errors: what the manager raises.
#pragma once

#include <string>
#include <vector>

namespace orvan {
class ProductMgr;
}

using Rows = std::vector<std::vector<std::string>>;

struct Explained {
    Rows table; ///< The first row has the captions. All rows have as many cells.
    std::vector<std::string> sentences;
};

[[nodiscard]] Explained explained(orvan::ProductMgr& manager);
