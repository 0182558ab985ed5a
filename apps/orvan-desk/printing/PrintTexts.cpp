#include "PrintTexts.h"

#include <algorithm>
#include <iterator>

namespace orvan::desk {

namespace {

/// The customer of a quote reads these words, so they are in the user's language although the desk itself is in
/// English.
struct Row {
    QLocale::Language language;
    const char *quote, *customer, *number, *date, *currency;
    const char *position, *partNumber, *product, *quantity, *unitPrice, *discount, *extendedPrice;
    const char *total, *net, *tax, *page, *rounded;
};

// clang-format off
constexpr Row kRows[] = {
    {QLocale::English, "Quote", "Customer", "Number", "Date", "Currency",
     "No.", "Part number", "Product", "Quantity", "Unit price", "Discount", "Price",
     "Total", "Net", "Tax %1", "Page %1 of %2",
     "Amounts are rounded for display."},
    {QLocale::German, "Angebot", "Kunde", "Nummer", "Datum", "Währung",
     "Pos.", "Artikelnummer", "Artikel", "Menge", "Einzelpreis", "Rabatt", "Preis",
     "Gesamtbetrag", "Nettobetrag", "Steuer %1", "Seite %1 von %2",
     "Die Beträge sind für die Anzeige gerundet."},
    {QLocale::French, "Devis", "Client", "Numéro", "Date", "Devise",
     "N°", "Référence", "Article", "Quantité", "Prix unitaire", "Remise", "Prix",
     "Total", "Total HT", "Taxe %1", "Page %1 sur %2",
     "Les montants sont arrondis pour l’affichage."},
    {QLocale::Spanish, "Presupuesto", "Cliente", "Número", "Fecha", "Moneda",
     "N.º", "Referencia", "Producto", "Cantidad", "Precio unitario", "Descuento", "Precio",
     "Total", "Importe neto", "Impuesto %1", "Página %1 de %2",
     "Los importes se muestran redondeados."},
    {QLocale::Italian, "Preventivo", "Cliente", "Numero", "Data", "Valuta",
     "N.", "Codice", "Articolo", "Quantità", "Prezzo unitario", "Sconto", "Prezzo",
     "Totale", "Imponibile", "Imposta %1", "Pagina %1 di %2",
     "Gli importi sono arrotondati per la visualizzazione."},
    {QLocale::Dutch, "Offerte", "Klant", "Nummer", "Datum", "Valuta",
     "Nr.", "Artikelnummer", "Artikel", "Aantal", "Stukprijs", "Korting", "Prijs",
     "Totaal", "Netto", "Belasting %1", "Pagina %1 van %2",
     "De bedragen zijn voor de weergave afgerond."},
    {QLocale::Portuguese, "Orçamento", "Cliente", "Número", "Data", "Moeda",
     "N.º", "Referência", "Produto", "Quantidade", "Preço unitário", "Desconto", "Preço",
     "Total", "Valor líquido", "Imposto %1", "Página %1 de %2",
     "Os valores são arredondados para apresentação."},
    {QLocale::Swedish, "Offert", "Kund", "Nummer", "Datum", "Valuta",
     "Nr", "Artikelnummer", "Artikel", "Antal", "À-pris", "Rabatt", "Pris",
     "Totalt", "Netto", "Skatt %1", "Sida %1 av %2",
     "Beloppen är avrundade för visning."},
    {QLocale::Arabic, "عرض سعر", "العميل", "الرقم", "التاريخ", "العملة",
     "م", "رقم القطعة", "المنتج", "الكمية", "سعر الوحدة", "الخصم", "السعر",
     "الإجمالي", "الصافي", "الضريبة %1", "صفحة %1 من %2",
     "المبالغ مقرّبة لأغراض العرض."},
};
// clang-format on

} // namespace

PrintTexts printTexts(const QLocale& locale)
{
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                   [&](const Row& each) { return each.language == locale.language(); });
    row = row == std::end(kRows) ? kRows : row;
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    return {.quote = text(row->quote),
            .customer = text(row->customer),
            .number = text(row->number),
            .date = text(row->date),
            .currency = text(row->currency),
            .position = text(row->position),
            .partNumber = text(row->partNumber),
            .product = text(row->product),
            .quantity = text(row->quantity),
            .unitPrice = text(row->unitPrice),
            .discount = text(row->discount),
            .extendedPrice = text(row->extendedPrice),
            .total = text(row->total),
            .net = text(row->net),
            .tax = text(row->tax),
            .page = text(row->page),
            .rounded = text(row->rounded)};
}

} // namespace orvan::desk
