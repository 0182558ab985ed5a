// PackedTexts: the four texts of a product, one behind the other in one piece of memory.
//
// As four std::strings they would take 128 bytes and up to four pieces of memory for each product of a list, however
// short they are. Setting one text makes the piece anew, which is no loss: users change one product at a time.
// Thread: a plain value. Raises std::length_error where the four take 4 GiB or more together.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace orvan {

class PackedTexts {
public:
    static constexpr std::size_t kCount = 4;
    using Views = std::array<std::string_view, kCount>;

    explicit PackedTexts(const Views& texts)
    {
        std::size_t size = 0;
        for (const std::string_view text : texts) {
            size += text.size();
        }
        if (size > std::numeric_limits<std::uint32_t>::max()) {
            throw std::length_error("the texts of a product");
        }
        if (size > 0) {
            bytes_.reset(new char[size]); // not make_unique, which would fill the bytes with 0 first
        }
        char* end = bytes_.get();
        for (std::size_t i = 0; i < kCount; ++i) {
            end = std::copy(texts[i].begin(), texts[i].end(), end);
            ends_[i] = static_cast<std::uint32_t>(end - bytes_.get());
        }
    }

    /// Valid until a text is set.
    std::string_view operator[](std::size_t which) const noexcept
    {
        const std::uint32_t begin = which == 0 ? 0 : ends_[which - 1];
        return {bytes_.get() + begin, ends_[which] - begin};
    }

    void set(std::size_t which, std::string_view text)
    {
        Views texts{(*this)[0], (*this)[1], (*this)[2], (*this)[3]};
        texts[which] = text;
        *this = PackedTexts(texts);
    }

private:
    std::unique_ptr<char[]> bytes_;            // null where all texts are empty
    std::array<std::uint32_t, kCount> ends_{}; // where each text ends
};

} // namespace orvan
