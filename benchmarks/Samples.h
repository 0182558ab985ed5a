// Samples: the data of the benchmarks, which is the same in every run: products, their products string, and a host.
#pragma once

#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/HeadlessProductView.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orvan::bench {

/// Whether the texts have characters that need a backslash in the products string.
enum class Escapes { none, everywhere };

/// Products as in the quote of a hardware store: names of 20 to 40 characters; every third product has a note.
std::vector<ProductValues> sampleProducts(std::size_t count, Escapes escapes = Escapes::none);
std::string productsString(const std::vector<ProductValues>& products);

/// The options of every host in the benchmarks: the formats of the United States, a raised size limit, no catalogue.
HostOptions hostOptions();
void registerSilentTrace(ComponentRegistry& components);

/// The thread's host without a window; the first call makes it.
HeadlessHost& headlessHost();
std::shared_ptr<ProductMgr> sampleManager(std::size_t count, Escapes escapes = Escapes::none);

} // namespace orvan::bench
