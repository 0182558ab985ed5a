#include "orvan/components/catalogue/CatalogueWords.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/SearchText.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kMostCandidates = 1'000; ///< Entries that are read for one search, found or not.
constexpr std::size_t kMostRows = 20;          ///< Entries that words add to a list: each is read from another page.
constexpr std::size_t kMostPieces = 4;         ///< Asked for in one search: more of them exclude few entries more.
constexpr std::size_t kMostWords = 6;          ///< Typed words of which a piece is asked for, if they are many.
constexpr std::size_t kMostCorrections = 32;
constexpr std::size_t kMostOfWord = 100;      ///< Words with the same beginning whose entries are looked up one by one.
constexpr const char* kNoPiece = "\"\"";      ///< A query that no entry meets.
constexpr std::size_t kShortestCorrected = 4; ///< Characters; shorter words are near to too many others.
constexpr std::size_t kLongestCorrected = 40;
/// Bytes at the beginning of a word with digits of which none is taken for a wrong or missing one. There are very many
/// such words, and the search would read one page for each letter that could stand there.
constexpr std::size_t kCertainOfCode = 2;
constexpr std::size_t kShortestCode = 3;
constexpr std::size_t kShortestBarcode = 12;    ///< Digits: from here on, leading zeros do not count (UPC and EAN).
constexpr const char* kAfterAll = "\U0010FFFF"; ///< Stands behind whatever continues a beginning.

bool hasDigit(std::string_view word)
{
    return std::any_of(word.begin(), word.end(), isDigit);
}

std::string_view withoutZeros(std::string_view code)
{
    if (code.size() < kShortestBarcode || !std::all_of(code.begin(), code.end(), isDigit)) {
        return code;
    }
    code.remove_prefix(std::min(code.find_first_not_of('0'), code.size()));
    return code;
}

} // namespace

struct CatalogueWords::Candidate {
    std::int64_t itemId, rank;
    std::string name, partNum;
    std::vector<std::string> forms; ///< Of name, part number, barcode and note.

    /// Its pieces need not stand side by side, so the words themselves are looked for.
    [[nodiscard]] bool hasWordsOfOne(const std::vector<Alternative>& alternatives) const
    {
        const auto has = [&](const std::string& word) {
            return std::any_of(forms.begin(), forms.end(),
                               [&](const std::string& form) { return form.find(word) != form.npos; });
        };
        return std::any_of(alternatives.begin(), alternatives.end(), [&](const Alternative& each) {
            return std::all_of(each.words.begin(), each.words.end(), has);
        });
    }
};

struct CatalogueWords::Layer {
    Layer(const CatalogueLayers& layers, std::size_t number)
        : at(number), pieces(layers.file(at), "SELECT rowid FROM piece WHERE piece MATCH ?1 ORDER BY rowid"),
          entries(layers.file(at), "SELECT entries FROM piece_entries WHERE piece = ?1"),
          product(layers.file(at), "SELECT item_id, name, part_num, barcode, note FROM product WHERE rank = ?1"),
          word(layers.file(at), "SELECT word, rank FROM word WHERE has_digits = ?1 AND word >= ?2 ORDER BY word")
    {
    }

    const std::size_t at;
    SqliteStatement pieces, entries, product, word;
};

CatalogueWords::CatalogueWords(const CatalogueLayers& layers) : layers_(layers)
{
    for (std::size_t layer = 0; layer < layers.count(); ++layer) {
        files_.push_back(std::make_unique<Layer>(layers, layer));
    }
}

CatalogueWords::~CatalogueWords() = default;

std::vector<std::string> CatalogueWords::telling(Layer& layer, const Words& words)
{
    struct Piece {
        bool isOther; ///< Not the rarest one of its word.
        std::int64_t entries;
        std::string text;
    };
    const auto rarer = [](const Piece& a, const Piece& b) {
        return std::tie(a.isOther, a.entries, a.text) < std::tie(b.isOther, b.entries, b.text);
    };
    std::vector<Piece> counted;
    for (const std::string& word : words) {
        const auto first = static_cast<std::ptrdiff_t>(counted.size());
        for (std::string& piece : piecesOf(word)) {
            SqliteRows rows = layer.entries.query(std::string_view(piece));
            if (!rows.next()) {
                return {};
            }
            counted.push_back({true, rows.integer(0), std::move(piece)});
        }
        if (const auto rarest = std::min_element(counted.begin() + first, counted.end(), rarer);
            rarest != counted.end()) {
            rarest->isOther = false;
        }
    }
    std::sort(counted.begin(), counted.end(), rarer);
    std::vector<std::string> pieces;
    for (const Piece& piece : counted) {
        if (pieces.size() < (piece.isOther ? kMostPieces : kMostWords)) {
            pieces.push_back(piece.text);
        }
    }
    return pieces;
}

std::string CatalogueWords::queryFor(Layer& layer, const std::vector<const Alternative*>& alternatives)
{
    std::string query;
    for (const Alternative* const alternative : alternatives) {
        std::string all;
        for (const std::string& piece : telling(layer, alternative->words)) {
            all.append(all.empty() ? "\"" : " AND \"").append(piece).append("\"");
        }
        if (!all.empty()) {
            query.append(query.empty() ? "(" : " OR (").append(all).append(")");
        }
    }
    return query.empty() ? kNoPiece : query;
}

bool CatalogueWords::addRanks(Layer& layer, const Alternative& alternative, std::vector<std::int64_t>& ranks)
{
    if (!alternative.corrected) {
        return false;
    }
    const std::size_t before = ranks.size();
    const std::string& beginning = alternative.words[*alternative.corrected];
    for (SqliteRows rows = layer.word.query(std::int64_t{alternative.hasDigits}, std::string_view(beginning));
         rows.next() && rows.text(0).starts_with(beginning);) {
        if (rows.type(1) == SqliteType::null || ranks.size() - before == kMostOfWord) {
            ranks.resize(before);
            return false;
        }
        ranks.push_back(rows.integer(1));
    }
    return true;
}

template <class Take>
void CatalogueWords::find(Layer& layer, const std::vector<Alternative>& alternatives, const Ranks& listed, Take&& take)
{
    std::vector<std::int64_t> byWord;
    std::vector<const Alternative*> others;
    for (const Alternative& alternative : alternatives) {
        if (!addRanks(layer, alternative, byWord)) {
            others.push_back(&alternative);
        }
    }
    std::sort(byWord.begin(), byWord.end(), std::greater<>());
    const std::string query = queryFor(layer, others);
    SqliteRows byPieces = layer.pieces.query(std::string_view(query));
    constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::max();
    const auto nextByPieces = [&] { return byPieces.next() ? byPieces.integer(0) : kNone; };
    std::size_t candidates = 0;
    for (std::int64_t ahead = nextByPieces(), last = kNone; candidates < kMostCandidates;) {
        std::int64_t rank = ahead;
        if (!byWord.empty() && byWord.back() < ahead) {
            rank = byWord.back();
            byWord.pop_back();
        } else if (rank != kNone) {
            ahead = nextByPieces();
        } else {
            return;
        }
        if (listed.contains(rank) || std::exchange(last, rank) == rank) {
            continue;
        }
        ++candidates;
        const std::optional<Candidate> candidate = read(layer, rank);
        if (candidate && candidate->hasWordsOfOne(alternatives) && !take(*candidate)) {
            return;
        }
    }
}

std::optional<CatalogueWords::Candidate> CatalogueWords::read(Layer& layer, std::int64_t rank)
{
    SqliteRows row = layer.product.query(rank);
    if (!row.next() || layers_.isHidden(layer.at, row.integer(0))) {
        return std::nullopt;
    }
    Candidate candidate{row.integer(0), rank, std::string(row.text(1)), std::string(row.text(2)), {}};
    for (int column = 1; column <= 4; ++column) {
        candidate.forms.push_back(searchForm(row.text(column)));
    }
    return candidate;
}

void CatalogueWords::add(LookUpText text, const std::vector<Alternative>& alternatives, std::size_t most,
                         std::vector<ListedRow>& rows)
{
    std::unordered_set<std::int64_t> listed;
    std::vector<Ranks> listedAt(files_.size());
    for (const ListedRow& row : rows) {
        listed.insert(row.itemId);
        listedAt[row.layer].insert(row.rank);
    }
    const std::size_t space = std::min(most - std::min(most, rows.size()), kMostRows);
    if (space == 0 || alternatives.empty()) {
        return;
    }
    std::vector<CatalogueLayers::Row> found;
    for (const auto& layer : files_) {
        std::size_t left = space;
        find(*layer, alternatives, listedAt[layer->at], [&](const Candidate& candidate) {
            const std::string& shown = text == LookUpText::name ? candidate.name : candidate.partNum;
            if (!shown.empty() && listed.insert(candidate.itemId).second) {
                found.push_back({candidate.name.empty() ? 1 : 0,
                                 candidate.name,
                                 {{candidate.itemId, shown}, layer->at, candidate.rank}});
                --left;
            }
            return left > 0;
        });
    }
    if (files_.size() > 1) {
        layers_.sort(found);
        found.resize(std::min(found.size(), space));
    }
    std::transform(found.begin(), found.end(), std::back_inserter(rows),
                   [](CatalogueLayers::Row& each) { return std::move(each.row); });
}

void CatalogueWords::addWords(LookUpText text, std::string_view typed, std::size_t most, std::vector<ListedRow>& rows)
{
    if (Words words = searchWords(typed); !words.empty()) {
        add(text, {{std::move(words)}}, most, rows);
    }
}

void CatalogueWords::addNearMisses(LookUpText text, std::string_view typed, std::size_t most,
                                   std::vector<ListedRow>& rows)
{
    const Words words = searchWords(typed);
    std::vector<Alternative> alternatives;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words.size() > 1 && wordFrom(hasDigit(words[i]), words[i]).starts_with(words[i])) {
            continue; // of several words, the error is in one that the catalogue does not have
        }
        for (std::string& correction : corrections(words[i])) {
            if (alternatives.size() < kMostCorrections) {
                alternatives.push_back({words, i, hasDigit(words[i])});
                alternatives.back().words[i] = std::move(correction);
            }
        }
    }
    add(text, alternatives, most, rows);
}

std::vector<std::int64_t> CatalogueWords::withCode(std::string_view typed)
{
    std::vector<std::int64_t> found;
    const std::string form = searchForm(typed);
    const std::string code(withoutZeros(form));
    if (code.size() >= kShortestCode) {
        for (const auto& layer : files_) {
            find(*layer, {{{code}}}, {}, [&](const Candidate& candidate) {
                const bool isPartNum = candidate.forms[1] == form;
                if (isPartNum || withoutZeros(candidate.forms[2]) == code) {
                    found.push_back(candidate.itemId);
                }
                return found.size() < 2;
            });
        }
    }
    return found;
}

std::string CatalogueWords::wordFrom(bool hasDigits, std::string_view text)
{
    std::string first;
    for (const auto& layer : files_) {
        SqliteRows rows = layer->word.query(std::int64_t{hasDigits}, text);
        if (rows.next() && (first.empty() || rows.text(0) < first)) {
            first = rows.text(0);
        }
    }
    return first;
}

std::vector<std::string> CatalogueWords::corrections(const std::string& word)
{
    std::vector<std::string> found;
    if (characterCount(word) < kShortestCorrected || word.size() > kLongestCorrected) {
        return found;
    }
    const bool digits = hasDigit(word);
    const auto tryWord = [&](std::string near) {
        if (near != word && !word.starts_with(near) && wordFrom(digits, near).starts_with(near)) {
            found.push_back(std::move(near));
        }
    };
    for (std::size_t at = 0; at < word.size(); at += characterSize(word, at)) {
        const std::string before = word.substr(0, at), rest = word.substr(at);
        const std::size_t size = characterSize(word, at);
        const std::string one = rest.substr(0, size), behind = rest.substr(size);
        if (!wordFrom(digits, before).starts_with(before)) {
            break; // no word begins so, and the error is before this place
        }
        tryWord(before + behind);
        if (!behind.empty()) {
            const std::size_t next = characterSize(behind, 0);
            tryWord(std::string(before).append(behind, 0, next).append(one).append(behind, next));
        }
        if (digits && at < kCertainOfCode) {
            continue;
        }
        // The characters that follow `before` in the catalogue's words are those that can stand here.
        for (std::string from = before + '\1';;) {
            const std::string next = wordFrom(digits, from);
            if (!next.starts_with(before) || next.size() <= before.size()) {
                break;
            }
            const std::string character = next.substr(at, characterSize(next, at));
            const std::string longer = before + character;
            tryWord(longer + behind);
            tryWord(longer + rest);
            from = longer + kAfterAll;
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace orvan
