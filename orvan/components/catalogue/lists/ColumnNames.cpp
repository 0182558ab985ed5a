#include "orvan/components/catalogue/lists/ColumnNames.h"

#include "orvan/components/catalogue/lists/ListWords.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <set>
#include <unordered_set>

namespace orvan {

namespace {

/// Texts in simplified form, which are views into strings of their own.
class Simplified {
public:
    /// The texts are separated by bars.
    Simplified(const char* texts)
    {
        forEachPart(texts,
                    [this](std::string_view text) { views_.emplace_back(own_.emplace_back(simplifiedWord(text))); });
    }
    const std::vector<std::string_view>& views() const { return views_; }

private:
    std::deque<std::string> own_; // whose elements stay where they are
    std::vector<std::string_view> views_;
};

struct NamesOfKind {
    ColumnPlace place;
    Simplified usual, vague;
};

// The languages stand in the order of ListWords.h; names of programs' exports come last. The first name that a header
// has is used.
const NamesOfKind& namesOf(ColumnPlace place)
{
    static const NamesOfKind names[] = {
        {&CatalogueColumns::itemId,
         "item id|id|product id|article id|Artikel-ID|Produkt-ID|ID produit|ID article|identifiant|ID producto|"
         "ID artículo|ID prodotto|ID articolo|product-ID|artikel-ID|ID produktu|ID towaru|ID produto|ID do produto|"
         "идентификатор|ID товара|ürün ID|variant id|entity_id|post id",
         ""},
        {&CatalogueColumns::name,
         "name|product name|item name|article name|product|article|title|item|part name|Bezeichnung|"
         "Artikelbezeichnung|Artikelname|Produktname|Produkt|Artikel|Benennung|Titel|Produktbezeichnung|"
         "Warenbezeichnung|désignation|nom|nom du produit|libellé|produit|intitulé|désignation article|"
         "libellé article|nombre|nombre del producto|producto|artículo|denominación|nombre del artículo|título|nome|"
         "nome prodotto|prodotto|articolo|denominazione|nome articolo|titolo|naam|productnaam|artikelnaam|"
         "omschrijving|artikelomschrijving|benaming|nazwa|nazwa produktu|nazwa towaru|produkt|towar|tytuł|"
         "nome do produto|produto|designação|artigo|nome do artigo|наименование|название|наименование товара|"
         "название товара|товар|номенклатура|ürün adı|ürün|ad|malzeme adı|stok adı|ürün ismi|isim|post_title|"
         "product_title|short name|display name|item title",
         "description|product description|item description|article description|short description|Beschreibung|"
         "Artikelbeschreibung|Kurztext|Bezeichnung 1|Text|descriptif|descripción|descrizione|beschrijving|opis|"
         "descrição|описание|açıklama|ürün açıklaması"},
        {&CatalogueColumns::key,
         "key|product key|item key|Schlüssel|clé|clave|chiave|sleutel|klucz|chave|ключ|anahtar|external id|"
         "external_reference",
         ""},
        {&CatalogueColumns::partNum,
         "part number|part num|part no|part|SKU|item number|item no|article number|article no|product number|"
         "product no|item code|product code|article code|part code|stock code|stock number|model number|"
         "order number|order code|catalogue number|catalog number|Artikelnummer|Artikelnr|Artikel-Nr|Art.-Nr.|Artnr|"
         "Produktnummer|Produkt-Nr|Teilenummer|Teile-Nr|Bestellnummer|Best.-Nr.|Materialnummer|Sachnummer|"
         "Artikelcode|Bestellnr|référence|réf|code article|code produit|numéro d'article|numéro de pièce|n° article|"
         "référence article|référence produit|referencia|ref|número de artículo|código de producto|"
         "código de artículo|código del producto|número de pieza|n.º de artículo|codice articolo|codice prodotto|"
         "riferimento|numero articolo|cod. articolo|cod. art.|numero parte|artikelnummer|productcode|productnummer|"
         "bestelnummer|bestelcode|onderdeelnummer|numer części|numer artykułu|nr artykułu|numer katalogowy|"
         "nr katalogowy|kod produktu|kod towaru|indeks|numer produktu|nr produktu|symbol|referência|"
         "código do produto|código do artigo|número da peça|артикул|номер детали|код товара|номер по каталогу|"
         "каталожный номер|номенклатурный номер|парт-номер|stok kodu|ürün kodu|parça numarası|parça no|malzeme kodu|"
         "stok no|ürün no|variant sku|default_code|internal reference|mpn|manufacturer part number|model",
         "code|Code|reference|Nummer|Nr|numéro|código|codice|numero|nummer|kod|numer|número|код|номер|number|no"},
        {&CatalogueColumns::barcode,
         "barcode|bar code|EAN|EAN code|EAN13|EAN-13|EAN number|GTIN|GTIN13|GTIN-13|GTIN14|UPC|UPC-A|UPC code|ISBN|"
         "JAN|Strichcode|EAN-Nummer|EAN-Code|Barcode-Nr|EAN-Nr|code-barres|code barre|code barres|gencod|"
         "código de barras|codice a barre|streepjescode|kod kreskowy|kod EAN|código EAN|codice EAN|штрихкод|"
         "штрих-код|баркод|barkod|variant barcode|EAN/UPC|GTIN, UPC, EAN, or ISBN|GTIN/EAN|EAN/GTIN|UPC/EAN|"
         "barcode number|global_unique_id",
         ""},
        {&CatalogueColumns::unitPrice,
         "unit price|price|list price|sales price|selling price|retail price|price each|regular price|"
         "standard price|base price|price per unit|RRP|MSRP|Einzelpreis|Stückpreis|Preis|Listenpreis|Verkaufspreis|"
         "VK|VK-Preis|Nettopreis|Bruttopreis|UVP|E-Preis|EP|Preis pro Stück|Preis je Einheit|Katalogpreis|"
         "prix unitaire|prix|PU|prix de vente|tarif|prix public|prix catalogue|PUHT|prix HT|precio unitario|precio|"
         "precio de venta|PVP|precio de lista|precio unidad|prezzo unitario|prezzo|prezzo di listino|"
         "prezzo di vendita|listino|stukprijs|prijs|eenheidsprijs|verkoopprijs|adviesprijs|prijs per stuk|"
         "catalogusprijs|cena jednostkowa|cena|cena sprzedaży|cena katalogowa|cena detaliczna|preço unitário|preço|"
         "preço de venda|preço de tabela|цена за единицу|цена|розничная цена|цена продажи|цена за шт|стоимость|"
         "birim fiyat|birim fiyatı|fiyat|satış fiyatı|liste fiyatı|fiyatı|lst_price|variant price|"
         "price tax excluded|price tax excl|item price|price amount",
         "amount|value|Betrag|montant|importe|importo|bedrag|kwota|valor|сумма|tutar"},
        {&CatalogueColumns::note,
         "note|notes|remark|remarks|comment|comments|description|Bemerkung|Bemerkungen|Anmerkung|Anmerkungen|Notiz|"
         "Hinweis|Beschreibung|Kommentar|Zusatztext|Langtext|remarque|remarques|commentaire|observations|nota|notas|"
         "observaciones|comentario|comentarios|descripción|note aggiuntive|osservazioni|commento|descrizione|"
         "opmerking|opmerkingen|toelichting|notitie|beschrijving|uwagi|uwaga|komentarz|opis|notatka|observação|"
         "observações|comentário|descrição|примечание|примечания|комментарий|описание|not|notlar|açıklama|yorum|"
         "short description|product description|item description|long description|body|body html|details",
         ""},
    };
    static_assert(std::size(names) == kColumnKinds);
    return *std::find_if(std::begin(names), std::end(names),
                         [place](const NamesOfKind& each) { return each.place == place; });
}

} // namespace

const std::vector<std::string_view>& usualColumnNames(ColumnPlace column)
{
    return namesOf(column).usual.views();
}

const std::vector<std::string_view>& vagueColumnNames(ColumnPlace column)
{
    return namesOf(column).vague.views();
}

bool isUsualColumnName(std::string_view simplifiedName)
{
    static const std::unordered_set<std::string_view> names = [] {
        std::unordered_set<std::string_view> all;
        for (const ColumnKind& kind : columnKinds()) {
            for (const auto* const some : {&usualColumnNames(kind.place), &vagueColumnNames(kind.place)}) {
                all.insert(some->begin(), some->end());
            }
        }
        return all;
    }();
    return names.contains(simplifiedName);
}

bool isColumnAddition(std::string_view simplifiedWord)
{
    static const std::set<std::string, std::less<>> additions = [] {
        const Simplified words(
            "in|en|w|в|per|net|netto|gross|brutto|HT|TTC|sin IVA|IVA|excl|incl|exkl|inkl|VAT|MwSt|BTW|KDV|НДС|tax|"
            "без|с|ohne|mit|zzgl|hors|taxe|EUR|euro|USD|GBP|CHF|PLN|zł|RUB|руб|TRY|TL|BRL|CZK|HUF|SEK|NOK|DKK|CAD|"
            "AUD|JPY|CNY|INR|RON|BGN|UAH");
        return std::set<std::string, std::less<>>(words.views().begin(), words.views().end());
    }();
    return simplifiedWord.empty() || additions.contains(simplifiedWord);
}

} // namespace orvan
