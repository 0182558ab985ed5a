// Samples: what the benchmarks work on, the same in every run: products, their string, a host.
#pragma once

#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/HeadlessProductView.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orvan::bench {

/// Where the texts have characters that stand behind a backslash in the products string.
enum class Escapes { none, everywhere };

/// Products as in a hardware store's quote: names of 20 to 40 characters, every third with a note.
std::vector<ProductFields> sampleProducts(std::size_t count, Escapes escapes = Escapes::none);
std::string productsString(const std::vector<ProductFields>& products);

/// For every host here: a user in the United States, any size of list, a trace component that does nothing, no
/// catalogue.
HostOptions hostOptions();
void registerSilentTrace(ComponentRegistry& components);

/// The thread's host without a window, made when it is first asked for.
HeadlessHost& headlessHost();
std::shared_ptr<ProductMgr> sampleManager(std::size_t count, Escapes escapes = Escapes::none);

} // namespace orvan::bench
