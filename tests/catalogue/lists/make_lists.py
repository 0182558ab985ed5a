#!/usr/bin/env python3
"""Makes the price lists of this folder, one for each dialect that docs/catalogue.md names. The products are invented."""

import io
import zipfile
from pathlib import Path

FOLDER = Path(__file__).parent


def text(name: str, content: str, encoding: str = "utf-8") -> None:
    (FOLDER / name).write_bytes(content.encode(encoding))


HEAD = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>\n"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
RELATIONS = "http://schemas.openxmlformats.org/package/2006/relationships"
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"


def relations(*targets: tuple[str, str]) -> str:
    lines = "".join(f"<Relationship Id='rId{i}' Type='{OFFICE}/{kind}' Target='{target}'/>"
                    for i, (kind, target) in enumerate(targets, 1))
    return f"{HEAD}<Relationships xmlns='{RELATIONS}'>{lines}</Relationships>"


def sheet(rows: str) -> str:
    return f"{HEAD}<worksheet xmlns='{MAIN}'><sheetData>{rows}</sheetData></worksheet>"


def workbook(name: str, sheets: list[tuple[str, str, str]], shared: str = "", changed: dict[str, str] | None = None,
             packed: bool = True) -> None:
    """Each sheet is its name, its state and its XML."""
    listed = "".join(f"<sheet name='{title}' sheetId='{i}' r:id='rId{i}'{state and f' state={chr(39)}{state}{chr(39)}'}/>"
                     for i, (title, state, _) in enumerate(sheets, 1))
    parts = {
        "[Content_Types].xml": HEAD + "<Types xmlns='http://schemas.openxmlformats.org/package/2006/content-types'/>",
        "_rels/.rels": relations(("officeDocument", "xl/workbook.xml")),
        "xl/workbook.xml": f"{HEAD}<workbook xmlns='{MAIN}' xmlns:r='{OFFICE}'><sheets>{listed}</sheets></workbook>",
        "xl/_rels/workbook.xml.rels": relations(*[("worksheet", f"worksheets/sheet{i}.xml")
                                                  for i in range(1, len(sheets) + 1)],
                                                ("sharedStrings", "sharedStrings.xml")),
        "xl/sharedStrings.xml": f"{HEAD}<sst xmlns='{MAIN}'>{shared}</sst>",
    }
    parts |= {f"xl/worksheets/sheet{i}.xml": content for i, (_, _, content) in enumerate(sheets, 1)}
    parts |= changed or {}
    file = io.BytesIO()
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED if packed else zipfile.ZIP_STORED, compresslevel=9) as archive:
        for part, content in parts.items():
            archive.writestr(zipfile.ZipInfo(part, (2026, 1, 1, 0, 0, 0)), content,
                             zipfile.ZIP_DEFLATED if packed else zipfile.ZIP_STORED)
    (FOLDER / name).write_bytes(file.getvalue())


def texts() -> None:
    text("english.csv", 'Part No.,Description,Unit Price (USD),Remarks\r\nB-8,"Bolt, M8","$1,234.50",steel\r\n'
                        "B-9,Bolt M9,call,\r\n,,,\r\nPart No.,Description,Unit Price (USD),Remarks\r\n"
                        "B-10,Bolt M10,$2.00,\r\nTotal,,$1236.50,\r\n")
    text("german.csv", "Preisliste 2026\nGültig ab 1. Mai\n\nArt.-Nr.;Bezeichnung;EAN-Code;Preis in EUR netto\n"
                       "S-1;Schlüssel;4006381333931;1.234,50 €\nS-2;Türgriff;;12,-\nS-3;Größe nach Maß;;auf Anfrage\n"
                       "Gesamtsumme;;;1.246,50 €\n", "cp1252")
    text("french.csv", "sep=;\r\nRéférence;Désignation;Prix unitaire HT;Code-barres\r\n"
                       "V-1;Vis à tête fraisée;1 234,50 €;3017620422003\r\nV-2;Écrou;0,05;\r\nV-3;Clé;sur demande;\r\n")
    text("spanish.txt", "Código\tDescripción\tPrecio\nT-1\tTornillo pequeño\t€ 1.234,50\nT-2\tTuerca\ta consultar\n",
         "cp1252")
    text("italian.csv", "Codice articolo;Descrizione;Prezzo di listino\nV-1;Vite di qualità;EUR 12,50\n"
                        "V-2;Dado;su richiesta\nTotale;;12,50\n")
    text("dutch.csv", "Artikelnummer;Omschrijving;Verkoopprijs;Opmerking\nB-1;Bout geïsoleerd;€ 12,-;op voorraad\n"
                      "B-2;Moer;€ 0,35;\nB-3;Ring;op aanvraag;\n", "utf-16")
    text("polish.csv", "Numer katalogowy;Nazwa towaru;Cena netto (PLN);Kod kreskowy\n"
                       "S-1;Śruba z łbem sześciokątnym;1 234,50 zł;5901234123457\nS-2;Nakrętka żółta;0,20 zł;\n"
                       "S-3;Podkładka;na zapytanie;\nRazem;;1234,70 zł;\n", "cp1250")
    text("portuguese.csv", "Referência;Designação;Preço unitário\nP-1;Parafuso de cabeça;R$ 1.234,50\n"
                           "P-2;Porca;sob consulta\n", "cp1252")
    text("russian.csv", "Артикул;Наименование;Цена, руб.;Штрихкод;Примечание\n"
                        "Б-1;Болт с шестигранной головкой;1 234,50 руб.;4601234567893;сталь\n"
                        "Б-2;Гайка;по запросу;;\nИтого;;1234,50;;\n", "cp1251")
    text("russian-unmarked.txt", "Артикул\tНаименование\tЦена\r\nБ-1\tБолт\t12,50\r\n", "utf-16-le")
    text("turkish.csv", "Stok kodu;Ürün adı;Birim fiyatı;Barkod\nC-1;Altıköşe başlı cıvata;1.234,50 TL;8690000000005\n"
                        "C-2;Işık değişim şeridi;fiyat sorunuz;\n", "cp1254")
    text("swiss.csv", "Artikelnummer;Bezeichnung;Preis CHF\nK-1;Kette;CHF 1'234.50\nK-2;Kugel;12.-\nK-3;Kanne;Fr. 5.–\n")
    text("shop-export.csv", "ID,Type,SKU,Name,Published,Short description,Regular price,Sale price,GTIN\n"
                            'W-17,simple,M-1,Mug,1,"A mug, white",9.90,7.90,4006381333931\n'
                            'W-18,variation,M-2,Mug blue,1,,,,\n')
    text("shop-variants.csv", "Handle,Title,Body (HTML),Variant SKU,Variant Price,Variant Barcode\n"
                              "mug,Mug,<p>white</p>,M-1,9.90,012345678905\nmug,,,M-2,10.90,\n")
    text("stock.csv", "Stock Code|Item|Barcode|Unit Price|Price|Qty\n10001|Nut|5012345678900||0.25|7\n"
                      "10002|Ring|||1.5|2\n")
    text("order-export.tsv", "Order code\tItem title\tPrice each\tComments\n\t\t\t\n0017 \t Wing nut \t3.10\tzinc\n"
                             "\t\t\t\nSubtotal\t\t3.10\t\n")
    text("no-header.csv", "B-1;Bolt;1,50\nB-2;Nut;0,20\n")


def books() -> None:
    def cell(place: str, value: str, kind: str = "") -> str:
        return f"<c r='{place}'{kind and f' t={chr(39)}{kind}{chr(39)}'}><v>{value}</v></c>"

    def inline(place: str, value: str) -> str:
        return f"<c r='{place}' t='inlineStr'><is><t>{value}</t></is></c>"

    shared = "".join(f"<si><t>{word}</t></si>" for word in ("Artikelnummer", "Bezeichnung", "Preis", "EAN", "Bemerkung",
                                                            "Schlüssel"))
    shared += "<si><r><rPr><b/></rPr><t>Tür</t></r><r><t xml:space='preserve'>griff </t></r><rPh sb='0' eb='1'><t>x</t></rPh></si>"
    shared += "<si><t>two_x000A_lines</t></si>"
    prices = sheet(
        f"<row r='1'>{inline('A1', 'Preisliste')}</row>"
        "<row r='3'>" + "".join(cell(f"{column}3", str(i), "s") for i, column in enumerate("ABCDE")) + "</row>"
        f"<row r='4'>{cell('A4', '1001')}{cell('B4', '5', 's')}{cell('C4', '19.989999999999998')}"
        f"{cell('D4', '4.006381333931E12')}</row>"
        f"<row r='5'>{inline('A5', 'T-2')}{cell('B5', '6', 's')}{cell('C5', '1E3')}{cell('E5', '7', 's')}"
        "<c r='XFD5' s='1'/></row>"
        f"<row r='6'>{inline('A6', 'T-3')}{inline('B6', 'Datum')}<c r='C6' s='14'><v>45000</v></c></row>"
        f"<row r='7'>{inline('A7', 'T-4')}{inline('B7', 'Anteil')}<c r='C7' s='9'><f>1/8</f><v>0.125</v></c></row>"
        f"<row r='9'>{inline('A9', 'T-5')}{inline('B9', 'Text')}{inline('C9', '1.234,50 €')}"
        f"{cell('E9', 'ja', 'str')}</row>"
        f"<row r='10'>{inline('A10', 'T-6')}{inline('B10', 'ohne Preis')}</row>")
    cover = sheet(f"<row><c t='inlineStr'><is><t>Willkommen</t></is></c></row>")
    workbook("workbook.xlsx", [("Deckblatt", "", cover), ("alt", "hidden", prices), ("Preise", "", prices)], shared)

    header = "<row r='1'>" + inline("A1", "SKU") + inline("B1", "Name") + inline("C1", "Price") + "</row>"
    entities = "<!DOCTYPE x [<!ENTITY a 'ha'>" + "".join(f"<!ENTITY {chr(98 + i)} '{('&' + chr(97 + i) + ';') * 10}'>"
                                                        for i in range(9)) + "]>"
    hostile = {
        "entities": {"xl/worksheets/sheet1.xml": sheet(header).replace("<worksheet", entities + "<worksheet")
                     .replace("SKU", "&j;")},
        "bomb": {"xl/worksheets/sheet1.xml": sheet(header + "<row r='2'/>" + " " * 70_000_000)},
        "huge-cell": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2'>{inline('A2', 'x' * 1_100_000)}</row>")},
        "huge-tag": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2' s='{'x' * 6_000_000}'/>")},
        "deep": {"xl/worksheets/sheet1.xml": sheet(header + "<x>" * 200)},
        "wrong-text": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2'>{cell('A2', '99', 's')}</row>")},
        "wrong-place": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2'>{inline('ABCD2', 'x')}</row>")},
        "wrong-row": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2'>{inline('A3', 'x')}</row>")},
        "rows-back": {"xl/worksheets/sheet1.xml": sheet(header + "<row r='1'/>")},
        "wide": {"xl/worksheets/sheet1.xml": sheet(header + f"<row r='2'>{inline('XFD2', 'x')}</row>")},
        "cut-xml": {"xl/worksheets/sheet1.xml": sheet(header)[:-20]},
        "no-sheet-part": {"xl/_rels/workbook.xml.rels": relations(("worksheet", "worksheets/sheet7.xml"))},
        "no-workbook": {"_rels/.rels": relations(("other", "xl/workbook.xml"))},
    }
    for name, changed in hostile.items():
        workbook(f"hostile-{name}.xlsx", [("Sheet", "", sheet(header))], changed=changed)
    whole = (FOLDER / "workbook.xlsx").read_bytes()
    (FOLDER / "hostile-cut.xlsx").write_bytes(whole[:len(whole) // 2])
    workbook("hostile-damaged.xlsx", [("Sheet", "", sheet(header + f"<row>{inline('A2', 'x')}</row>"))], packed=False)
    stored = (FOLDER / "hostile-damaged.xlsx").read_bytes()
    (FOLDER / "hostile-damaged.xlsx").write_bytes(stored.replace(b"<t>Price</t>", b"<t>Prize</t>"))  # a wrong checksum


texts()
books()
