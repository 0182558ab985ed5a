#include "orvan/components/catalogue/lists/ListWords.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <set>

namespace orvan {

namespace {

using WordSet = std::set<std::string, std::less<>>;

WordSet simplified(std::string_view words)
{
    WordSet set;
    forEachPart(words, [&set](std::string_view word) { set.insert(simplifiedWord(word)); });
    return set;
}

const WordSet& noPriceWords()
{
    static const WordSet words = simplified(
        "on request|upon request|price on request|price upon request|request|price on application|on application|"
        "POA|P.O.A.|POR|ask|ask for price|call|call us|call for price|contact us|enquire|inquire|quote|on quote|TBA|"
        "TBD|TBC|n/a|n.a.|none|no price|null|market price|auf Anfrage|Preis auf Anfrage|Anfrage|a. A.|auf Nachfrage|"
        "nach Vereinbarung|nach Aufwand|Tagespreis|k. A.|keine Angabe|ohne Preis|sur demande|prix sur demande|"
        "sur devis|nous consulter|à définir|bajo pedido|bajo consulta|precio bajo consulta|a consultar|"
        "precio a consultar|consultar|a petición|bajo petición|sin precio|su richiesta|prezzo su richiesta|"
        "a richiesta|da definire|su preventivo|op aanvraag|prijs op aanvraag|nader te bepalen|n.v.t.|n.t.b.|"
        "in overleg|na zapytanie|cena na zapytanie|do uzgodnienia|do ustalenia|zapytaj|zapytaj o cenę|brak|"
        "brak ceny|b/d|sob consulta|preço sob consulta|sob pedido|sob orçamento|a definir|по запросу|"
        "цена по запросу|под заказ|уточняйте|уточняйте цену|договорная|договорная цена|звоните|нет цены|нет|sorunuz|"
        "fiyat sorunuz|fiyat için arayınız|arayınız|talep üzerine|teklif isteyiniz|istek üzerine");
    return words;
}

const WordSet& totalWords()
{
    static const WordSet words = simplified(
        "total|totals|subtotal|sub-total|grand total|net total|total amount|sum|Summe|Gesamt|Gesamtsumme|"
        "Zwischensumme|Endsumme|Nettosumme|Übertrag|total général|sous-total|somme|total HT|total general|suma|"
        "suma total|totales|totale|totale generale|subtotale|somma|totaal|subtotaal|eindtotaal|razem|ogółem|"
        "suma częściowa|łącznie|soma|total geral|итого|всего|итог|сумма|общая сумма|промежуточный итог|toplam|"
        "genel toplam|ara toplam");
    return words;
}

} // namespace

std::string simplifiedWord(std::string_view text)
{
    std::string folded = foldCase(text);
    if (isAscii(folded)) { // most are, and asking ICU for each character would take long
        std::erase_if(folded, [](char c) { return !(c >= 'a' && c <= 'z') && !(c >= '0' && c <= '9'); });
        return folded;
    }
    UErrorCode status = U_ZERO_ERROR;
    std::string decomposed;
    ::icu::StringByteSink<std::string> sink(&decomposed);
    ::icu::Normalizer2::getNFKDInstance(status)->normalizeUTF8(
        0, {folded.data(), static_cast<std::int32_t>(folded.size())}, sink, nullptr, status);
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, {}, u_errorName(status));
    }
    folded = std::move(decomposed);
    std::string result;
    for (std::size_t at = 0; at < folded.size();) {
        const std::size_t size = characterSize(folded, at);
        const char32_t character = characterAt(folded, at);
        if (character == U'\u0131' || character == U'\u0142') {
            // The Turkish i without a dot, whose capital is I, and the Polish l with a stroke: no accents to Unicode.
            result += character == U'\u0131' ? 'i' : 'l';
        } else if (u_isalnum(static_cast<UChar32>(character))) {
            result.append(folded, at, size);
        }
        at += size;
    }
    return result;
}

bool isWordOf(ListWords words, std::string_view text)
{
    constexpr std::size_t kLongest = 100; // bytes, and more than any of the words has
    return text.size() <= kLongest &&
           (words == ListWords::noPrice ? noPriceWords() : totalWords()).contains(simplifiedWord(text));
}

} // namespace orvan
