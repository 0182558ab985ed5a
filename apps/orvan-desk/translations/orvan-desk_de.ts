<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>FormatChoice</name>
    <message>
        <source>Comma  ,</source>
        <translation>Komma  ,</translation>
    </message>
    <message>
        <source>Semicolon  ;</source>
        <translation>Semikolon  ;</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>Bar  |</source>
        <translation>Senkrechter Strich  |</translation>
    </message>
    <message>
        <source>Point  1.5</source>
        <translation>Punkt  1.5</translation>
    </message>
    <message>
        <source>Comma  1,5</source>
        <translation>Komma  1,5</translation>
    </message>
</context>
<context>
    <name>LineFields</name>
    <message>
        <source>Part#</source>
        <translation>Art.-Nr.</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Unit Price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>Disc%</source>
        <translation>Rabatt %</translation>
    </message>
    <message>
        <source>Ext Price</source>
        <translation>Gesamtpreis</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Schlüssel</translation>
    </message>
</context>
<context>
    <name>OpenQuote</name>
    <message>
        <source>%1 on %2 since %3</source>
        <translation>%1 auf %2 seit %3</translation>
    </message>
    <message>
        <source>“%1” is open elsewhere: %2.

Who saves last would overwrite the other&apos;s work.</source>
        <translation>„%1“ ist an anderer Stelle geöffnet: %2.

Wer zuletzt speichert, würde die Arbeit des anderen überschreiben.</translation>
    </message>
    <message>
        <source>Open to &amp;Read</source>
        <translation>Zum &amp;Lesen öffnen</translation>
    </message>
    <message>
        <source>Open &amp;Anyway</source>
        <translation>&amp;Trotzdem öffnen</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>“%1” is open elsewhere: %2.</source>
        <translation>„%1“ ist an anderer Stelle geöffnet: %2.</translation>
    </message>
    <message>
        <source>Another program has changed “%1” since it was opened here, at %2.

Saving would overwrite these changes.</source>
        <translation>Ein anderes Programm hat „%1“ geändert (%2), nachdem die Datei hier geöffnet wurde.

Speichern würde diese Änderungen überschreiben.</translation>
    </message>
    <message>
        <source>“%1” has been deleted or moved since it was opened here.</source>
        <translation>„%1“ wurde gelöscht oder verschoben, nachdem die Datei hier geöffnet wurde.</translation>
    </message>
    <message>
        <source>&amp;Save There Again</source>
        <translation>&amp;Dort erneut speichern</translation>
    </message>
    <message>
        <source>Save &amp;Elsewhere…</source>
        <translation>&amp;Woanders speichern…</translation>
    </message>
</context>
<context>
    <name>PlainBox</name>
    <message>
        <source>Orvan Desk</source>
        <translation>Orvan Desk</translation>
    </message>
</context>
<context>
    <name>PrintOptions</name>
    <message>
        <source>The tax rate in the settings, “%1”, is not 0 to 100 percent: no tax is printed.</source>
        <translation>Der Steuersatz in den Einstellungen, „%1“, liegt nicht zwischen 0 und 100 Prozent: Es wird keine Steuer gedruckt.</translation>
    </message>
    <message>
        <source>The page in the settings, “%1”, cannot be used: %2 is printed.</source>
        <translation>Die Seite in den Einstellungen, „%1“, kann nicht verwendet werden: Gedruckt wird auf %2.</translation>
    </message>
</context>
<context>
    <name>PrintedQuote</name>
    <message>
        <source>The logo “%1” cannot be printed: %2.</source>
        <translation>Das Logo „%1“ kann nicht gedruckt werden: %2.</translation>
    </message>
</context>
<context>
    <name>QuoteLocale</name>
    <message>
        <source>This quote does not say its currency. It is now taken to be in %1.</source>
        <translation>Dieses Angebot nennt seine Währung nicht. Angenommen wird nun %1.</translation>
    </message>
</context>
<context>
    <name>orvan</name>
    <message>
        <source>#</source>
        <translation>#</translation>
    </message>
    <message>
        <source>%1 fields where the first line has %2</source>
        <translation>%1 Felder, wo die erste Zeile %2 hat</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: not found</source>
        <translation>%1: nicht gefunden</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;bbrechen</translation>
    </message>
    <message>
        <source>&amp;Delete Product</source>
        <translation>Artikel &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Discount%</source>
        <translation>&amp;Rabatt %</translation>
    </message>
    <message>
        <source>&amp;Ext Price</source>
        <translation>&amp;Gesamtpreis</translation>
    </message>
    <message>
        <source>&amp;First</source>
        <translation>&amp;Erster</translation>
    </message>
    <message>
        <source>&amp;Goto Product</source>
        <translation>&amp;Gehe zu Artikel</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>&amp;Letzter</translation>
    </message>
    <message>
        <source>&amp;New Product</source>
        <translation>&amp;Neuer Artikel</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Nächster</translation>
    </message>
    <message>
        <source>&amp;Note</source>
        <translation>&amp;Notiz</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Voriger</translation>
    </message>
    <message>
        <source>&amp;Product</source>
        <translation>Art&amp;ikel</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>&amp;Menge</translation>
    </message>
    <message>
        <source>&amp;Save &amp;&amp; Close</source>
        <translation>S&amp;peichern und schließen</translation>
    </message>
    <message>
        <source>&amp;Total</source>
        <translation>&amp;Summe</translation>
    </message>
    <message>
        <source>&amp;Unit Price</source>
        <translation>&amp;Einzelpreis</translation>
    </message>
    <message>
        <source>A product holds characters that are not valid text.</source>
        <translation>Ein Artikel enthält Zeichen, die kein gültiger Text sind.</translation>
    </message>
    <message>
        <source>Add new product</source>
        <translation>Neuen Artikel hinzufügen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Application-defined or object-defined error</source>
        <translation>Anwendungs- oder objektdefinierter Fehler</translation>
    </message>
    <message>
        <source>Are you sure you want to delete the current product?</source>
        <translation>Möchten Sie den aktuellen Artikel wirklich löschen?</translation>
    </message>
    <message>
        <source>Automation error</source>
        <translation>Automatisierungsfehler</translation>
    </message>
    <message>
        <source>Class does not support the expected interface</source>
        <translation>Klasse unterstützt die erwartete Schnittstelle nicht</translation>
    </message>
    <message>
        <source>Component can&apos;t create object</source>
        <translation>Komponente kann das Objekt nicht erstellen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Could not save the current product due to an error.</source>
        <translation>Der aktuelle Artikel konnte wegen eines Fehlers nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not undo the changes due to an error. The dialog stays open.</source>
        <translation>Die Änderungen konnten wegen eines Fehlers nicht rückgängig gemacht werden. Der Dialog bleibt geöffnet.</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>D&amp;uplicate Product</source>
        <translation>Artikel &amp;duplizieren</translation>
    </message>
    <message>
        <source>Delete current product</source>
        <translation>Aktuellen Artikel löschen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Disc%</source>
        <translation>Rabatt %</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch Null</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Error %1: %2</source>
        <translation>Fehler %1: %2</translation>
    </message>
    <message>
        <source>Ext Price</source>
        <translation>Gesamtpreis</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Rückwärts suchen</translation>
    </message>
    <message>
        <source>First Column</source>
        <translation>Erste Spalte</translation>
    </message>
    <message>
        <source>Form already displayed; can&apos;t show modally</source>
        <translation>Formular wird bereits angezeigt; modale Anzeige nicht möglich</translation>
    </message>
    <message>
        <source>Go to first product</source>
        <translation>Zum ersten Artikel</translation>
    </message>
    <message>
        <source>Go to last product</source>
        <translation>Zum letzten Artikel</translation>
    </message>
    <message>
        <source>Go to next product</source>
        <translation>Zum nächsten Artikel</translation>
    </message>
    <message>
        <source>Go to previous product</source>
        <translation>Zum vorigen Artikel</translation>
    </message>
    <message>
        <source>If you answer No, the whole list goes back to what it was.</source>
        <translation>Wenn Sie mit Nein antworten, erhält die ganze Liste ihren früheren Stand zurück.</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Interner Fehler</translation>
    </message>
    <message>
        <source>Invalid file format</source>
        <translation>Ungültiges Dateiformat</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ungültiger Prozeduraufruf oder ungültiges Argument</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Eigenschaftswert</translation>
    </message>
    <message>
        <source>Invalid use of Null</source>
        <translation>Ungültige Verwendung von Null</translation>
    </message>
    <message>
        <source>It cannot be opened: %1.</source>
        <translation>Die Datei kann nicht geöffnet werden: %1.</translation>
    </message>
    <message>
        <source>It cannot be written: %1.</source>
        <translation>Die Datei kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>It has been written, but a power failure now could bring the former one back: %1.</source>
        <translation>Die Datei wurde geschrieben, aber ein Stromausfall könnte jetzt die frühere zurückbringen: %1.</translation>
    </message>
    <message>
        <source>It is damaged at %1: %2.</source>
        <translation>Die Datei ist beschädigt (%1): %2.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; holds half a character.</source>
        <translation>Die Datei ist beschädigt: „%1“ enthält ein halbes Zeichen.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is missing.</source>
        <translation>Die Datei ist beschädigt: „%1“ fehlt.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not a date.</source>
        <translation>Die Datei ist beschädigt: „%1“ ist kein Datum.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not a text.</source>
        <translation>Die Datei ist beschädigt: „%1“ ist kein Text.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not the code of a currency, which is three capital letters: &quot;%2&quot;.</source>
        <translation>Die Datei ist beschädigt: „%1“ ist kein Währungscode aus drei Großbuchstaben: „%2“.</translation>
    </message>
    <message>
        <source>It is not a quote file.</source>
        <translation>Das ist keine Angebotsdatei.</translation>
    </message>
    <message>
        <source>It was written by another version of the desk (%1).</source>
        <translation>Die Datei wurde von einer anderen Version von Orvan Desk geschrieben (%1).</translation>
    </message>
    <message>
        <source>Its products cannot be read. %1.</source>
        <translation>Die Artikel der Datei können nicht gelesen werden. %1.</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Hauptmenü</translation>
    </message>
    <message>
        <source>Menu of the Row</source>
        <translation>Menü der Zeile</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move Product Down In The List</source>
        <translation>Artikel in der Liste nach unten</translation>
    </message>
    <message>
        <source>Move Product Up In the List</source>
        <translation>Artikel in der Liste nach oben</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>No recovery copy of the unsaved changes could be written: %1.</source>
        <translation>Von den nicht gespeicherten Änderungen konnte keine Wiederherstellungskopie geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Nothing was added, because the list would be too large to be saved: %1 bytes, and at most %2 are possible.</source>
        <translation>Es wurde nichts hinzugefügt, weil die Liste zu groß zum Speichern würde: %1 Byte, höchstens %2 sind möglich.</translation>
    </message>
    <message>
        <source>Nothing was pasted.</source>
        <translation>Es wurde nichts eingefügt.</translation>
    </message>
    <message>
        <source>Object required</source>
        <translation>Objekt erforderlich</translation>
    </message>
    <message>
        <source>Object variable not set</source>
        <translation>Objektvariable nicht festgelegt</translation>
    </message>
    <message>
        <source>Object was unloaded</source>
        <translation>Objekt wurde entladen</translation>
    </message>
    <message>
        <source>Orvan writes no trace to &quot;%1&quot;: %2</source>
        <translation>Orvan schreibt kein Protokoll in „%1“: %2</translation>
    </message>
    <message>
        <source>Out of memory</source>
        <translation>Nicht genügend Speicher</translation>
    </message>
    <message>
        <source>Out of string space</source>
        <translation>Nicht genügend Speicher für Zeichenfolgen</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>P&amp;art#</source>
        <translation>&amp;Art.-Nr.</translation>
    </message>
    <message>
        <source>P&amp;roduct</source>
        <translation>Ar&amp;tikel</translation>
    </message>
    <message>
        <source>Part#</source>
        <translation>Art.-Nr.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Path/File access error</source>
        <translation>Fehler beim Zugriff auf Pfad/Datei</translation>
    </message>
    <message>
        <source>Please select a product first</source>
        <translation>Bitte wählen Sie zuerst einen Artikel aus</translation>
    </message>
    <message>
        <source>Product %1: this discount is not possible</source>
        <translation>Artikel %1: Dieser Rabatt ist nicht möglich</translation>
    </message>
    <message>
        <source>Product %1: this quantity is not possible</source>
        <translation>Artikel %1: Diese Menge ist nicht möglich</translation>
    </message>
    <message>
        <source>Product %1: this unit price is not possible</source>
        <translation>Artikel %1: Dieser Einzelpreis ist nicht möglich</translation>
    </message>
    <message>
        <source>Product Information</source>
        <translation>Artikelinformationen</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>Products string, product %1</source>
        <translation>Artikeldaten, Artikel %1</translation>
    </message>
    <message>
        <source>Products string, product %1, field %2</source>
        <translation>Artikeldaten, Artikel %1, Feld %2</translation>
    </message>
    <message>
        <source>Products that differ: %1.</source>
        <translation>Artikel mit Unterschieden: %1.</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Row %1 has %2 cells, and there are only %3 columns</source>
        <translation>Zeile %1 hat %2 Zellen, aber es gibt nur %3 Spalten</translation>
    </message>
    <message>
        <source>Row %1, column &quot;%2&quot;: &quot;%3&quot; %4</source>
        <translation>Zeile %1, Spalte „%2“: „%3“ %4</translation>
    </message>
    <message>
        <source>Row %1: a quotation mark is not closed</source>
        <translation>Zeile %1: Ein Anführungszeichen ist nicht geschlossen</translation>
    </message>
    <message>
        <source>Second Column</source>
        <translation>Zweite Spalte</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des gültigen Bereichs</translation>
    </message>
    <message>
        <source>The catalogue &quot;%1&quot; cannot be used: %2.</source>
        <translation>Der Katalog „%1“ kann nicht verwendet werden: %2.</translation>
    </message>
    <message>
        <source>The list cannot show %1 products</source>
        <translation>Die Liste kann keine %1 Artikel anzeigen</translation>
    </message>
    <message>
        <source>The product information has been modified, would you like to save the changes?</source>
        <translation>Die Artikelinformationen wurden geändert. Möchten Sie die Änderungen speichern?</translation>
    </message>
    <message>
        <source>The product manager counts %1 products</source>
        <translation>Die Artikelverwaltung zählt %1 Artikel</translation>
    </message>
    <message>
        <source>The products take %1 bytes; at most %2 bytes can be kept</source>
        <translation>Die Artikel belegen %1 Byte; höchstens %2 Byte können gespeichert werden</translation>
    </message>
    <message>
        <source>The recovery copy “%1” could not be removed: %2.</source>
        <translation>Die Wiederherstellungskopie „%1“ konnte nicht entfernt werden: %2.</translation>
    </message>
    <message>
        <source>The total of the products is beyond the range of an amount</source>
        <translation>Die Summe der Artikel überschreitet den Wertebereich eines Betrags</translation>
    </message>
    <message>
        <source>The total size of the product data for an IBO has exceeded the maximum limit of %1 bytes. Please try limiting the amount of data you put in the product note field (this or other products in this IBO) and try saving the product info again.</source>
        <translation>Die Gesamtgröße der Artikeldaten eines Geschäftsobjekts hat die Höchstgrenze von %1 Byte überschritten. Bitte verringern Sie die Datenmenge im Notizfeld (dieses oder anderer Artikel in diesem Geschäftsobjekt), und speichern Sie die Artikelinformationen dann erneut.</translation>
    </message>
    <message>
        <source>There are no products to paste.</source>
        <translation>Es gibt keine Artikel zum Einfügen.</translation>
    </message>
    <message>
        <source>There is no product at position %1 of %2</source>
        <translation>An Position %1 von %2 gibt es keinen Artikel</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Typen unverträglich</translation>
    </message>
    <message>
        <source>Unit Price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>We apologize for the inconvenience but due to an internal application error the current dialog will be closed. If the issue persists please contact our support department at %1</source>
        <translation>Wir entschuldigen uns für die Unannehmlichkeiten: Wegen eines internen Anwendungsfehlers wird der aktuelle Dialog geschlossen. Wenn das Problem weiterhin besteht, wenden Sie sich bitte an unseren Kundendienst unter %1</translation>
    </message>
    <message>
        <source>Would you like to overwrite the current contents of the product note field with the contents from the product look-up?</source>
        <translation>Möchten Sie den aktuellen Inhalt des Notizfelds mit dem Inhalt aus der Artikelsuche überschreiben?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not fit 32 bits</source>
        <translation>„%1“ passt nicht in 32 Bit</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>a backslash stands before a character that needs none</source>
        <translation>ein umgekehrter Schrägstrich steht vor einem Zeichen, das keinen braucht</translation>
    </message>
    <message>
        <source>a newer version of this program has made it</source>
        <translation>eine neuere Version dieses Programms hat die Datei erstellt</translation>
    </message>
    <message>
        <source>a quote in line %1 is never closed</source>
        <translation>ein Anführungszeichen in Zeile %1 wird nicht geschlossen</translation>
    </message>
    <message>
        <source>a quote that is never closed</source>
        <translation>ein Anführungszeichen wird nicht geschlossen</translation>
    </message>
    <message>
        <source>another program has locked it</source>
        <translation>ein anderes Programm hat die Datei gesperrt</translation>
    </message>
    <message>
        <source>another program is replacing it</source>
        <translation>ein anderes Programm ersetzt die Datei gerade</translation>
    </message>
    <message>
        <source>is not a number with the decimal separator &quot;%1&quot;</source>
        <translation>ist keine Zahl mit dem Dezimaltrennzeichen „%1“</translation>
    </message>
    <message>
        <source>is not a number</source>
        <translation>ist keine Zahl</translation>
    </message>
    <message>
        <source>is too large</source>
        <translation>ist zu groß</translation>
    </message>
    <message>
        <source>it cannot be locked</source>
        <translation>die Datei kann nicht gesperrt werden</translation>
    </message>
    <message>
        <source>it cannot be opened</source>
        <translation>die Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>it does not begin with the names of its columns</source>
        <translation>die Datei beginnt nicht mit den Namen ihrer Spalten</translation>
    </message>
    <message>
        <source>it holds no rows</source>
        <translation>die Datei enthält keine Zeilen</translation>
    </message>
    <message>
        <source>it is a device</source>
        <translation>das ist ein Gerät</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>das ist ein Ordner</translation>
    </message>
    <message>
        <source>it is a link that leads nowhere</source>
        <translation>das ist eine Verknüpfung, die ins Leere führt</translation>
    </message>
    <message>
        <source>it is a pipe</source>
        <translation>das ist eine Pipe</translation>
    </message>
    <message>
        <source>it is a socket</source>
        <translation>das ist ein Socket</translation>
    </message>
    <message>
        <source>it is damaged (%1)</source>
        <translation>die Datei ist beschädigt (%1)</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>it is in UTF-16; save it as UTF-8</source>
        <translation>die Datei ist in UTF-16; speichern Sie sie als UTF-8</translation>
    </message>
    <message>
        <source>it is larger than %1 MiB</source>
        <translation>die Datei ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>it is no catalogue file</source>
        <translation>das ist keine Katalogdatei</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>das ist keine Datei</translation>
    </message>
    <message>
        <source>item id</source>
        <translation>Artikel-ID</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>der Ordner dafür kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>its lock file cannot be used: %1</source>
        <translation>die Sperrdatei kann nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>key</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>neither a name nor a part number</source>
        <translation>weder Name noch Artikelnummer</translation>
    </message>
    <message>
        <source>no file is named</source>
        <translation>es ist keine Datei angegeben</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>part number</source>
        <translation>Artikelnummer</translation>
    </message>
    <message>
        <source>something that is no file has the former one&apos;s name</source>
        <translation>etwas, das keine Datei ist, trägt den Namen der früheren Datei</translation>
    </message>
    <message>
        <source>text behind a closing quote</source>
        <translation>Text hinter einem schließenden Anführungszeichen</translation>
    </message>
    <message>
        <source>text that is not UTF-8</source>
        <translation>Text, der kein UTF-8 ist</translation>
    </message>
    <message>
        <source>the amount is beyond the range</source>
        <translation>der Betrag überschreitet den Wertebereich</translation>
    </message>
    <message>
        <source>the count of products is beyond the range</source>
        <translation>die Anzahl der Artikel überschreitet den Wertebereich</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the document could not be made</source>
        <translation>das Dokument konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>the item id &quot;%1&quot; is in an earlier row, too</source>
        <translation>die Artikel-ID „%1“ steht auch in einer früheren Zeile</translation>
    </message>
    <message>
        <source>the record has more than 8 fields</source>
        <translation>der Datensatz hat mehr als 8 Felder</translation>
    </message>
    <message>
        <source>the record has only %1 of 8 fields</source>
        <translation>der Datensatz hat nur %1 von 8 Feldern</translation>
    </message>
    <message>
        <source>the settings &quot;%1&quot; cannot be read: %2</source>
        <translation>die Einstellungen „%1“ können nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the settings &quot;%1&quot; cannot be written: %2</source>
        <translation>die Einstellungen „%1“ können nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>the string does not begin with the count of products</source>
        <translation>die Daten beginnen nicht mit der Anzahl der Artikel</translation>
    </message>
    <message>
        <source>the string ends within the count of products</source>
        <translation>die Daten enden innerhalb der Anzahl der Artikel</translation>
    </message>
    <message>
        <source>the string is cut short</source>
        <translation>die Daten sind abgeschnitten</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is no amount with a decimal comma</source>
        <translation>der Einzelpreis „%1“ ist kein Betrag mit Dezimalkomma</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is no amount with a decimal point</source>
        <translation>der Einzelpreis „%1“ ist kein Betrag mit Dezimalpunkt</translation>
    </message>
    <message>
        <source>there is another file of this name</source>
        <translation>es gibt eine andere Datei dieses Namens</translation>
    </message>
    <message>
        <source>there is more than the count of products announces</source>
        <translation>es folgt mehr, als die Anzahl der Artikel ankündigt</translation>
    </message>
    <message>
        <source>there is no former one</source>
        <translation>es gibt keine frühere Datei</translation>
    </message>
    <message>
        <source>there is something else of this name</source>
        <translation>es gibt etwas anderes dieses Namens</translation>
    </message>
    <message>
        <source>this is not an amount in its shortest form</source>
        <translation>das ist kein Betrag in seiner kürzesten Form</translation>
    </message>
    <message>
        <source>unit price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message numerus="yes">
        <source>Add these %n products to the list?</source>
        <translation>
            <numerusform>Diesen Artikel zur Liste hinzufügen?</numerusform>
            <numerusform>Diese %n Artikel zur Liste hinzufügen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Are you sure you want to delete the %n selected products?</source>
        <translation>
            <numerusform>Möchten Sie den ausgewählten Artikel wirklich löschen?</numerusform>
            <numerusform>Möchten Sie die %n ausgewählten Artikel wirklich löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 “%2”: %3</source>
        <translation>%1 „%2“: %3</translation>
    </message>
    <message>
        <source>Click to choose what this column shows</source>
        <translation>Klicken Sie, um zu wählen, was diese Spalte zeigt</translation>
    </message>
    <message>
        <source>Fit to Texts</source>
        <translation>An Texte anpassen</translation>
    </message>
    <message>
        <source>Narrower</source>
        <translation>Schmaler</translation>
    </message>
    <message>
        <source>No products yet. Press Insert or the + button to add one.</source>
        <translation>Noch keine Artikel. Drücken Sie Einfg oder die Schaltfläche +, um einen hinzuzufügen.</translation>
    </message>
    <message>
        <source>Product Column</source>
        <translation>Spalte Artikel</translation>
    </message>
    <message>
        <source>Reset Columns</source>
        <translation>Spalten zurücksetzen</translation>
    </message>
    <message>
        <source>Wider</source>
        <translation>Breiter</translation>
    </message>
    <message>
        <source>it has %1 columns, and at most %2 can be read</source>
        <translation>die Datei hat %1 Spalten, und höchstens %2 können gelesen werden</translation>
    </message>
    <message>
        <source>it has no lines</source>
        <translation>die Datei hat keine Zeilen</translation>
    </message>
    <message>
        <source>its first line cannot be read</source>
        <translation>die erste Zeile kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>no match</source>
        <translation>kein Treffer</translation>
    </message>
    <message>
        <source>no product can have this</source>
        <translation>kein Artikel kann das haben</translation>
    </message>
    <message>
        <source>the price of this quantity is too large</source>
        <translation>der Preis dieser Menge ist zu groß</translation>
    </message>
    <message>
        <source>this is no amount with a decimal comma</source>
        <translation>das ist kein Betrag mit Dezimalkomma</translation>
    </message>
    <message>
        <source>this is no amount with a decimal point</source>
        <translation>das ist kein Betrag mit Dezimalpunkt</translation>
    </message>
    <message numerus="yes">
        <source>%n match</source>
        <translation>
            <numerusform>ein Treffer</numerusform>
            <numerusform>%n Treffer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n or more match</source>
        <translation>
            <numerusform>mindestens ein Treffer</numerusform>
            <numerusform>mindestens %n Treffer</numerusform>
        </translation>
    </message>
    <message>
        <source>Products</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>%1 fields where the header has %2</source>
        <translation>%1 Felder, wo die Kopfzeile %2 hat</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>%1; line %2 has %3</source>
        <translation>%1; Zeile %2 hat %3</translation>
    </message>
    <message>
        <source>a cell refers to text %1 of %2</source>
        <translation>eine Zelle verweist auf den Text %1 von %2</translation>
    </message>
    <message>
        <source>a cell stands in no row</source>
        <translation>eine Zelle steht in keiner Zeile</translation>
    </message>
    <message>
        <source>a tag in its part &quot;%1&quot; is too long</source>
        <translation>eine Marke in ihrem Teil „%1“ ist zu lang</translation>
    </message>
    <message>
        <source>a temporary file in &quot;%1&quot; cannot be used</source>
        <translation>eine temporäre Datei in „%1“ kann nicht benutzt werden</translation>
    </message>
    <message>
        <source>barcode</source>
        <translation>Strichcode</translation>
    </message>
    <message>
        <source>it has more than %1 columns</source>
        <translation>sie hat mehr als %1 Spalten</translation>
    </message>
    <message>
        <source>it has no sheet &quot;%1&quot;; its sheets are %2</source>
        <translation>sie hat kein Tabellenblatt „%1“; ihre Blätter sind %2</translation>
    </message>
    <message>
        <source>it has no sheet</source>
        <translation>sie hat kein Tabellenblatt</translation>
    </message>
    <message>
        <source>it is a PDF file; ask for the list as .xlsx or CSV</source>
        <translation>sie ist eine PDF-Datei; bitten Sie um die Liste als .xlsx oder CSV</translation>
    </message>
    <message>
        <source>it is a ZIP file that is damaged or incomplete (%1)</source>
        <translation>sie ist eine ZIP-Datei, die beschädigt oder unvollständig ist (%1)</translation>
    </message>
    <message>
        <source>it is a ZIP file, but no workbook (.xlsx)</source>
        <translation>sie ist eine ZIP-Datei, aber keine Arbeitsmappe (.xlsx)</translation>
    </message>
    <message>
        <source>it is a row of totals</source>
        <translation>sie ist eine Summenzeile</translation>
    </message>
    <message>
        <source>it is a web page or XML; open it in a spreadsheet and save it as .xlsx or CSV</source>
        <translation>sie ist eine Webseite oder XML; öffnen Sie sie in einer Tabellenkalkulation und speichern Sie sie als .xlsx oder CSV</translation>
    </message>
    <message>
        <source>it is a workbook of an older form, or one with a password; save it as .xlsx or CSV</source>
        <translation>sie ist eine Arbeitsmappe einer älteren Form oder eine mit Kennwort; speichern Sie sie als .xlsx oder CSV</translation>
    </message>
    <message>
        <source>it is no workbook (.xlsx); save it as .xlsx or CSV</source>
        <translation>sie ist keine Arbeitsmappe (.xlsx); speichern Sie sie als .xlsx oder CSV</translation>
    </message>
    <message>
        <source>it repeats the names of the columns</source>
        <translation>sie wiederholt die Namen der Spalten</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; cannot be unpacked (%2)</source>
        <translation>ihr Teil „%1“ kann nicht entpackt werden (%2)</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; declares a document type, as no workbook does</source>
        <translation>ihr Teil „%1“ vereinbart einen Dokumenttyp, was keine Arbeitsmappe tut</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; is damaged (%2)</source>
        <translation>ihr Teil „%1“ ist beschädigt (%2)</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; is missing</source>
        <translation>ihr Teil „%1“ fehlt</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; unpacks to more than %2 times its size</source>
        <translation>ihr Teil „%1“ wird beim Entpacken mehr als %2-mal so groß</translation>
    </message>
    <message>
        <source>its row &quot;%1&quot; comes after row %2</source>
        <translation>ihre Zeile „%1“ steht nach der Zeile %2</translation>
    </message>
    <message>
        <source>its sheet &quot;%1&quot; is missing</source>
        <translation>ihr Tabellenblatt „%1“ fehlt</translation>
    </message>
    <message>
        <source>its texts are too large to be kept in memory; save the list as CSV</source>
        <translation>ihre Texte sind zu groß für den Arbeitsspeicher; speichern Sie die Liste als CSV</translation>
    </message>
    <message>
        <source>line %1 has no names of columns</source>
        <translation>Zeile %1 hat keine Namen von Spalten</translation>
    </message>
    <message>
        <source>line %1 of its part &quot;%2&quot; is no XML (%3)</source>
        <translation>Zeile %1 ihres Teils „%2“ ist kein XML (%3)</translation>
    </message>
    <message>
        <source>no column for the %1 (named: %2)</source>
        <translation>keine Spalte für %1 (genannt: %2)</translation>
    </message>
    <message>
        <source>no column for the %1 (usual names: %2)</source>
        <translation>keine Spalte für %1 (übliche Namen: %2)</translation>
    </message>
    <message>
        <source>nothing stands in it</source>
        <translation>in ihr steht nichts</translation>
    </message>
    <message>
        <source>one of its texts has more than a megabyte</source>
        <translation>einer ihrer Texte hat mehr als ein Megabyte</translation>
    </message>
    <message>
        <source>row %1 has a cell with the wrong place &quot;%2&quot;</source>
        <translation>Zeile %1 hat eine Zelle mit dem falschen Platz „%2“</translation>
    </message>
    <message>
        <source>row %1 has more than a megabyte</source>
        <translation>Zeile %1 hat mehr als ein Megabyte</translation>
    </message>
    <message>
        <source>text that is not %1</source>
        <translation>Text, der nicht %1 ist</translation>
    </message>
    <message>
        <source>the barcode &quot;%1&quot; has lost its last digits in a spreadsheet</source>
        <translation>der Strichcode „%1“ hat seine letzten Ziffern in einer Tabellenkalkulation verloren</translation>
    </message>
    <message>
        <source>the elements of its part &quot;%1&quot; are nested too deeply</source>
        <translation>die Elemente ihres Teils „%1“ sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>the folder for temporary files, &quot;%1&quot;, is full</source>
        <translation>der Ordner für temporäre Dateien, „%1“, ist voll</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is negative</source>
        <translation>der Einzelpreis „%1“ ist negativ</translation>
    </message>
    <message>
        <source>there is no encoding &quot;%1&quot;</source>
        <translation>es gibt keine Zeichencodierung „%1“</translation>
    </message>
    <message>
        <source>workbooks cannot be read, because a part of this program is missing (%1); save the list as CSV</source>
        <translation>Arbeitsmappen können nicht gelesen werden, weil ein Teil dieses Programms fehlt (%1); speichern Sie die Liste als CSV</translation>
    </message>
    <message>
        <source>%1. The connection ended with the import, so the list may be imported or not; import it again to be sure</source>
        <translation>%1. Die Verbindung endete während des Imports; vielleicht ist die Liste importiert, vielleicht nicht. Importieren Sie sie zur Sicherheit noch einmal</translation>
    </message>
    <message>
        <source>%1: it cannot be written</source>
        <translation>%1: in diese Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>The products of %1 are being copied; until that is done, none is found.</source>
        <translation>Die Artikel von %1 werden kopiert; solange das dauert, wird keiner gefunden.</translation>
    </message>
    <message>
        <source>The products of %1 cannot be copied: %2.</source>
        <translation>Die Artikel von %1 können nicht kopiert werden: %2.</translation>
    </message>
    <message>
        <source>a newer version of this program has set it up</source>
        <translation>eine neuere Version dieses Programms hat ihn eingerichtet</translation>
    </message>
    <message>
        <source>a port must be a number; percent-encode the characters : / @ in names and passwords</source>
        <translation>ein Port muss eine Zahl sein; die Zeichen : / @ in Namen und Kennwörtern sind mit Prozentzeichen zu schreiben</translation>
    </message>
    <message>
        <source>a server cannot be used, because a part of this program is missing (%1)</source>
        <translation>ein Server kann nicht benutzt werden, weil ein Teil dieses Programms fehlt (%1)</translation>
    </message>
    <message>
        <source>printers cannot be used, because a part of this program is missing (%1); export the quote as PDF</source>
        <translation>Drucker können nicht benutzt werden, weil ein Teil dieses Programms fehlt (%1); exportieren Sie das Angebot als PDF</translation>
    </message>
    <message>
        <source>a text has a character 0, which the server cannot keep</source>
        <translation>ein Text hat ein Zeichen 0, das der Server nicht aufnehmen kann</translation>
    </message>
    <message>
        <source>an address in brackets must end with ]</source>
        <translation>eine Adresse in Klammern muss mit ] enden</translation>
    </message>
    <message>
        <source>behind the ?, options have the form name=value and stand between &amp;</source>
        <translation>nach dem ? haben Optionen die Form Name=Wert und sind durch &amp; getrennt</translation>
    </message>
    <message>
        <source>it does not begin with postgresql://</source>
        <translation>sie beginnt nicht mit postgresql://</translation>
    </message>
    <message>
        <source>it has a character 0</source>
        <translation>sie hat ein Zeichen 0</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>er wurde abgebrochen</translation>
    </message>
    <message>
        <source>its catalogue is damaged (%1)</source>
        <translation>sein Katalog ist beschädigt (%1)</translation>
    </message>
    <message>
        <source>the address of the server is wrong: %1</source>
        <translation>die Adresse des Servers ist falsch: %1</translation>
    </message>
    <message>
        <source>the catalogue was exchanged while it was copied</source>
        <translation>der Katalog wurde ausgetauscht, während er kopiert wurde</translation>
    </message>
    <message>
        <source>the database has the encoding %1, but a catalogue needs %2</source>
        <translation>die Datenbank hat die Zeichencodierung %1, aber ein Katalog braucht %2</translation>
    </message>
    <message>
        <source>the server does not answer</source>
        <translation>der Server antwortet nicht</translation>
    </message>
    <message>
        <source>the user may not change the catalogue, and needs the role %1</source>
        <translation>der Benutzer darf den Katalog nicht ändern und braucht die Rolle %1</translation>
    </message>
    <message>
        <source>the user may not read the catalogue, and needs the role %1</source>
        <translation>der Benutzer darf den Katalog nicht lesen und braucht die Rolle %1</translation>
    </message>
    <message>
        <source>there is no connection</source>
        <translation>es besteht keine Verbindung</translation>
    </message>
    <message>
        <source>there is no folder for the user&apos;s data</source>
        <translation>es gibt keinen Ordner für die Daten des Benutzers</translation>
    </message>
    <message>
        <source>this database has no catalogue; orvan-catalogue setup-server makes one</source>
        <translation>diese Datenbank hat keinen Katalog; orvan-catalogue setup-server legt einen an</translation>
    </message>
    <message>
        <source>two hexadecimal digits must follow each percent sign</source>
        <translation>auf jedes Prozentzeichen müssen zwei hexadezimale Ziffern folgen</translation>
    </message>
    <message>
        <source>a row stands within row %1</source>
        <translation>eine Zeile steht in der Zeile %1</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>No products.</source>
        <translation>Keine Artikel.</translation>
    </message>
    <message>
        <source>Product Information (Read Only)</source>
        <translation>Artikelinformationen (nur zum Lesen)</translation>
    </message>
    <message>
        <source>The products hold bytes that are no text (UTF-8).</source>
        <translation>Die Artikel enthalten Bytes, die kein Text sind (UTF-8).</translation>
    </message>
    <message>
        <source>The products hold half a character, which is no text.</source>
        <translation>Die Artikel enthalten ein halbes Zeichen, das kein Text ist.</translation>
    </message>
    <message>
        <source>View Product</source>
        <translation>Artikel ansehen</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be made.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The recording has ended, because &quot;%1&quot; cannot be written: %2.</source>
        <translation>Die Aufzeichnung ist beendet, weil „%1“ nicht geschrieben werden kann: %2.</translation>
    </message>
    <message>
        <source>You have no home folder.</source>
        <translation>Sie haben keinen persönlichen Ordner.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CatalogueMenu</name>
    <message>
        <source>1 product</source>
        <translation>1 Artikel</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>%Ln Artikel</numerusform>
            <numerusform>%Ln Artikel</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 from “%2”</source>
        <translation>%1 aus „%2“</translation>
    </message>
    <message>
        <source>products that cannot be read</source>
        <translation>Artikel, die nicht gelesen werden können</translation>
    </message>
    <message>
        <source>sample products</source>
        <translation>Beispielartikel</translation>
    </message>
    <message>
        <source>Ca&amp;talogue</source>
        <translation>&amp;Katalog</translation>
    </message>
    <message>
        <source>&amp;Import Price List…</source>
        <translation>Preisliste &amp;importieren…</translation>
    </message>
    <message>
        <source>Use the &amp;Sample Products</source>
        <translation>&amp;Beispielartikel verwenden</translation>
    </message>
    <message>
        <source>&amp;Bring Back the Former Catalogue</source>
        <translation>&amp;Früheren Katalog zurückholen</translation>
    </message>
    <message>
        <source>The catalogue contains %1.

%2

The present catalogue is kept: “Bring Back the Former Catalogue” in the same menu brings it back.</source>
        <translation>Der Katalog enthält %1.

%2

Der jetzige Katalog wird aufbewahrt: „Früheren Katalog zurückholen“ im selben Menü bringt ihn zurück.</translation>
    </message>
    <message>
        <source>

The former catalogue that has been kept so far is deleted: %1.</source>
        <translation>

Der bisher aufbewahrte frühere Katalog wird gelöscht: %1.</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>Replace it with the sample products?</source>
        <translation>Möchten Sie ihn durch die Beispielartikel ersetzen?</translation>
    </message>
    <message>
        <source>The catalogue now contains the sample products.</source>
        <translation>Der Katalog enthält jetzt die Beispielartikel.</translation>
    </message>
    <message>
        <source>The catalogue now contains %1.

The same command brings the other one back.</source>
        <translation>Der Katalog enthält jetzt %1.

Derselbe Befehl bringt den anderen zurück.</translation>
    </message>
    <message>
        <source>The former catalogue could not be brought back.</source>
        <translation>Der frühere Katalog konnte nicht zurückgeholt werden.</translation>
    </message>
    <message>
        <source>The sample products could not be imported into the catalogue.</source>
        <translation>Die Beispielartikel konnten nicht in den Katalog importiert werden.</translation>
    </message>
    <message>
        <source>Import Price List</source>
        <translation>Preisliste importieren</translation>
    </message>
    <message>
        <source>Replace it with the products of “%1”?</source>
        <translation>Möchten Sie ihn durch die Artikel aus „%1“ ersetzen?</translation>
    </message>
    <message>
        <source>“%1” could not be imported.</source>
        <translation>„%1“ konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>The catalogue now contains %1.</source>
        <translation>Der Katalog enthält jetzt %1.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reading “%1”…</source>
        <translation>„%1“ wird gelesen…</translation>
    </message>
    <message numerus="yes">
        <source>Sorting %Ln products…</source>
        <translation>
            <numerusform>%Ln Artikel wird sortiert…</numerusform>
            <numerusform>%Ln Artikel werden sortiert…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading “%1”: %Ln products</source>
        <translation>
            <numerusform>„%1“ wird gelesen: %Ln Artikel</numerusform>
            <numerusform>„%1“ wird gelesen: %Ln Artikel</numerusform>
        </translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>… and %n more</source>
        <translation>
            <numerusform>… und eine weitere</numerusform>
            <numerusform>… und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not imported: one row has an error.</source>
        <translation>„%1“ wurde nicht importiert: Eine Zeile ist fehlerhaft.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” was not imported: %n rows have errors.</source>
        <translation>
            <numerusform>„%1“ wurde nicht importiert: %n Zeile ist fehlerhaft.</numerusform>
            <numerusform>„%1“ wurde nicht importiert: %n Zeilen sind fehlerhaft.</numerusform>
        </translation>
    </message>
    <message>
        <source>

The catalogue was not changed.</source>
        <translation>

Der Katalog wurde nicht geändert.</translation>
    </message>
    <message>
        <source>Price lists (*.csv *.tsv *.txt *.xlsx);;All files (*)</source>
        <translation>Preislisten (*.csv *.tsv *.txt *.xlsx);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 without a price.</source>
        <translation>%1 ohne Preis.</translation>
    </message>
    <message>
        <source>1 row with errors was left out.</source>
        <translation>1 Zeile mit Fehlern wurde ausgelassen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln rows with errors were left out.</source>
        <translation>
            <numerusform>%Ln Zeile mit Fehlern wurde ausgelassen.</numerusform>
            <numerusform>%Ln Zeilen mit Fehlern wurden ausgelassen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The administrator has set the catalogue for all users of this computer.</source>
        <translation>Der Administrator hat den Katalog für alle Benutzer dieses Computers festgelegt.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CopyWatch</name>
    <message>
        <source>of an unknown time</source>
        <translation>Stand unbekannt</translation>
    </message>
    <message>
        <source>up to date</source>
        <translation>auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>as of %1</source>
        <translation>Stand %1</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>„%1“: %2</translation>
    </message>
    <message>
        <source>Others could read a password here. Keep it in the file ~/.pgpass or in a service file, and leave it out of the address.</source>
        <translation>Andere könnten ein Kennwort hier lesen. Bewahren Sie es in der Datei ~/.pgpass oder in einer Dienstdatei auf, und lassen Sie es in der Adresse weg.</translation>
    </message>
    <message>
        <source>No products of %1 yet: %2</source>
        <translation>Noch keine Artikel von %1: %2</translation>
    </message>
    <message>
        <source>Copying the products of %1: %L2 %</source>
        <translation>Die Artikel von %1 werden kopiert: %L2 %</translation>
    </message>
    <message>
        <source>Asking %1 for its products</source>
        <translation>%1 wird nach seinen Artikeln gefragt</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1. No changes come: %2</source>
        <translation>%1. Es kommen keine Änderungen: %2</translation>
    </message>
    <message>
        <source>%1. Copying anew: %L2 %</source>
        <translation>%1. Wird neu kopiert: %L2 %</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CurrencyDialog</name>
    <message>
        <source>Quote Currency</source>
        <translation>Währung des Angebots</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Find a currency by its code or name</source>
        <translation>Währung nach Code oder Namen suchen</translation>
    </message>
    <message>
        <source>The amounts stay as they are: nothing is converted.</source>
        <translation>Die Beträge bleiben, wie sie sind: Es wird nichts umgerechnet.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::ExchangeActions</name>
    <message>
        <source>The quote would be too large to be saved: %L1 bytes, and at most %L2 are possible.</source>
        <translation>Das Angebot wäre zu groß, um gespeichert zu werden: %L1 Bytes, und höchstens %L2 sind möglich.</translation>
    </message>
    <message>
        <source>The total would be too large.</source>
        <translation>Die Summe wäre zu groß.</translation>
    </message>
    <message>
        <source>Export Lines</source>
        <translation>Zeilen exportieren</translation>
    </message>
    <message>
        <source>&amp;Choose File…</source>
        <translation>&amp;Datei wählen…</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>&amp;Trennzeichen</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>De&amp;zimalstellen</translation>
    </message>
    <message>
        <source>&amp;Import Lines…</source>
        <translation>Zeilen &amp;importieren…</translation>
    </message>
    <message>
        <source>E&amp;xport Lines…</source>
        <translation>Zeilen e&amp;xportieren…</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Lines for a spreadsheet (*.%1);;All files (*)</source>
        <translation>Zeilen für eine Tabelle (*.%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>“%1” has been written.</source>
        <translation>„%1“ wurde geschrieben.</translation>
    </message>
    <message>
        <source>“%1” could not be written.</source>
        <translation>„%1“ konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Import Lines</source>
        <translation>Zeilen importieren</translation>
    </message>
    <message>
        <source>Lines of a spreadsheet (*.csv *.tsv *.txt);;All files (*)</source>
        <translation>Zeilen einer Tabelle (*.csv *.tsv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>“%1” could not be imported.</source>
        <translation>„%1“ konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>Import 1 Line</source>
        <translation>Importieren von einer Zeile</translation>
    </message>
    <message numerus="yes">
        <source>Import %Ln Lines</source>
        <translation>
            <numerusform>Importieren von einer Zeile</numerusform>
            <numerusform>Importieren von %Ln Zeilen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>orvan::desk::ExplainDialog</name>
    <message>
        <source>too large for an amount</source>
        <translation>zu groß für einen Betrag</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>genau</translation>
    </message>
    <message>
        <source>rounded in binary arithmetic</source>
        <translation>beim Rechnen mit Binärzahlen gerundet</translation>
    </message>
    <message>
        <source>Price of product %1: %2</source>
        <translation>Preis von Artikel %1: %2</translation>
    </message>
    <message>
        <source>Percent to pay: a discount of %1% counts as none</source>
        <translation>Zu zahlender Anteil: ein Rabatt von %1 % zählt nicht</translation>
    </message>
    <message>
        <source>Percent to pay: 100% − %1%</source>
        <translation>Zu zahlender Anteil: 100 % − %1 %</translation>
    </message>
    <message>
        <source>Quantity × unit price: %1 × %2</source>
        <translation>Menge × Einzelpreis: %1 × %2</translation>
    </message>
    <message>
        <source>%1% of %2</source>
        <translation>%1 % von %2</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>shown as %1</source>
        <translation>angezeigt als %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamtbetrag</translation>
    </message>
    <message>
        <source>Product %1</source>
        <translation>Artikel %1</translation>
    </message>
    <message>
        <source>rounded to be shown: %1</source>
        <translation>für die Anzeige gerundet: %1</translation>
    </message>
    <message>
        <source>Further products: %L1</source>
        <translation>Weitere Artikel: %L1</translation>
    </message>
    <message>
        <source>Sum of all prices</source>
        <translation>Summe aller Preise</translation>
    </message>
    <message>
        <source>the prices as they are shown, added up</source>
        <translation>die angezeigten Preise zusammengezählt</translation>
    </message>
    <message>
        <source>the exact sum, rounded to be shown</source>
        <translation>die genaue Summe, für die Anzeige gerundet</translation>
    </message>
    <message>
        <source>not the sum of the prices</source>
        <translation>nicht die Summe der Preise</translation>
    </message>
    <message>
        <source>The prices add up to %1, which is too large for an amount, so there is no total.</source>
        <translation>Die Preise ergeben zusammen %1. Das ist zu groß für einen Betrag, deshalb gibt es keinen Gesamtbetrag.</translation>
    </message>
    <message>
        <source>The prices as they are shown add up to the total as it is shown.</source>
        <translation>Die angezeigten Preise ergeben zusammen den angezeigten Gesamtbetrag.</translation>
    </message>
    <message>
        <source>The prices as they are shown add up to %1, but the total is shown as %2. Each amount is rounded for itself to be shown; the total is the sum of the exact prices.</source>
        <translation>Die angezeigten Preise ergeben zusammen %1, der Gesamtbetrag wird aber als %2 angezeigt. Jeder Betrag wird für die Anzeige für sich gerundet; der Gesamtbetrag ist die Summe der genauen Preise.</translation>
    </message>
    <message>
        <source>The price of product %1 is %2, but its quantity, unit price and discount give %3. It was stored like this; changing one of them in the editor computes it anew.</source>
        <translation>Der Preis von Artikel %1 ist %2, aber Menge, Einzelpreis und Rabatt ergeben %3. Er wurde so gespeichert; wer einen der drei Werte im Editor ändert, lässt ihn neu berechnen.</translation>
    </message>
    <message>
        <source>Products whose price is not what their quantity, unit price and discount give: %1.</source>
        <translation>Artikel, deren Preis nicht der ist, den Menge, Einzelpreis und Rabatt ergeben: %1.</translation>
    </message>
    <message>
        <source>Products whose price is 0 because it is too large for an amount: %1.</source>
        <translation>Artikel, deren Preis 0 ist, weil er zu groß für einen Betrag ist: %1.</translation>
    </message>
    <message>
        <source>Explain</source>
        <translation>Erklären</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Exact value</source>
        <translation>Genauer Wert</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>How</source>
        <translation>Wie</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>rounded, a half to the even digit</source>
        <translation>gerundet, eine Hälfte zur geraden Ziffer</translation>
    </message>
</context>
<context>
    <name>orvan::desk::ImportDialog</name>
    <message>
        <source>1 line</source>
        <translation>eine Zeile</translation>
    </message>
    <message numerus="yes">
        <source>%Ln lines</source>
        <translation>
            <numerusform>eine Zeile</numerusform>
            <numerusform>%Ln Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>Line %L1: %2</source>
        <translation>Zeile %L1: %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>&amp;Append to the quote&apos;s lines</source>
        <translation>An die Zeilen des Angebots &amp;anhängen</translation>
    </message>
    <message>
        <source>&amp;Replace the quote&apos;s lines</source>
        <translation>Die Zeilen des Angebots e&amp;rsetzen</translation>
    </message>
    <message>
        <source>Import Lines from “%1”</source>
        <translation>Zeilen aus „%1“ importieren</translation>
    </message>
    <message>
        <source>What was understood of the file</source>
        <translation>Was von der Datei verstanden wurde</translation>
    </message>
    <message>
        <source>Lines that cannot be imported</source>
        <translation>Zeilen, die nicht importiert werden können</translation>
    </message>
    <message>
        <source>The &amp;first line has the names of the columns</source>
        <translation>Die &amp;erste Zeile enthält die Namen der Spalten</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>&amp;Trennzeichen</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>De&amp;zimalstellen</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Column %L1</source>
        <translation>Spalte %L1</translation>
    </message>
    <message>
        <source>%L1 !</source>
        <translation>%L1 !</translation>
    </message>
    <message>
        <source>(not imported)</source>
        <translation>(nicht importiert)</translation>
    </message>
    <message>
        <source>What column %L1 has</source>
        <translation>Was Spalte %L1 enthält</translation>
    </message>
    <message>
        <source>Choose above what the columns have.</source>
        <translation>Wählen Sie oben, was die Spalten enthalten.</translation>
    </message>
    <message>
        <source>Nothing can be imported, because %1 cannot be understood.</source>
        <translation>Es kann nichts importiert werden, weil nicht alles verstanden wurde: %1.</translation>
    </message>
    <message>
        <source>The file has no lines to import.</source>
        <translation>Die Datei enthält keine Zeilen, die importiert werden können.</translation>
    </message>
    <message>
        <source>%1 understood.</source>
        <translation>Verstanden: %1.</translation>
    </message>
    <message>
        <source>&amp;Import 1 Line</source>
        <translation>Eine Zeile &amp;importieren</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Import %Ln Lines</source>
        <translation>
            <numerusform>Eine Zeile &amp;importieren</numerusform>
            <numerusform>%Ln Zeilen &amp;importieren</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>orvan::desk::KeySheet</name>
    <message>
        <source>In the list</source>
        <translation>In der Liste</translation>
    </message>
    <message>
        <source>In the editor</source>
        <translation>Im Editor</translation>
    </message>
    <message>
        <source>In the desk</source>
        <translation>Im Fenster</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>Find a command or a key</source>
        <translation>Befehl oder Taste suchen</translation>
    </message>
</context>
<context>
    <name>orvan::desk::LetterheadDialog</name>
    <message>
        <source>Print &amp;tax of</source>
        <translation>S&amp;teuer drucken:</translation>
    </message>
    <message>
        <source>Letterhead and Columns</source>
        <translation>Briefkopf und Spalten</translation>
    </message>
    <message>
        <source>&amp;Seller</source>
        <translation>&amp;Verkäufer</translation>
    </message>
    <message>
        <source>&amp;Address</source>
        <translation>&amp;Anschrift</translation>
    </message>
    <message>
        <source>&amp;Logo</source>
        <translation>&amp;Logo</translation>
    </message>
    <message>
        <source>&amp;Closing text</source>
        <translation>&amp;Schlusstext</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>Aus&amp;wählen…</translation>
    </message>
    <message>
        <source>&amp;Position</source>
        <translation>&amp;Position</translation>
    </message>
    <message>
        <source>Part nu&amp;mber</source>
        <translation>Artikel&amp;nummer</translation>
    </message>
    <message>
        <source>&amp;Note</source>
        <translation>N&amp;otiz</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>&amp;Menge</translation>
    </message>
    <message>
        <source>&amp;Unit price</source>
        <translation>&amp;Einzelpreis</translation>
    </message>
    <message>
        <source>&amp;Discount</source>
        <translation>&amp;Rabatt</translation>
    </message>
    <message>
        <source>&amp;Extended price</source>
        <translation>&amp;Gesamtpreis</translation>
    </message>
    <message>
        <source>Choose Logo</source>
        <translation>Logo auswählen</translation>
    </message>
    <message>
        <source>Pictures (%1);;All files (*)</source>
        <translation>Bilder (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>This picture cannot be printed: %1.</source>
        <translation>Dieses Bild kann nicht gedruckt werden: %1.</translation>
    </message>
    <message>
        <source>“%1” is not a rate: 0 to 100 percent, with at most four decimals.</source>
        <translation>„%1“ ist kein Steuersatz: 0 bis 100 Prozent mit höchstens vier Nachkommastellen.</translation>
    </message>
    <message>
        <source>This is set for all users of this computer.</source>
        <translation>Das ist für alle Benutzer dieses Computers festgelegt.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::MainWindow</name>
    <message>
        <source>Customer</source>
        <translation>Ändern des Kunden</translation>
    </message>
    <message>
        <source>Quote Number</source>
        <translation>Ändern der Angebotsnummer</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Ändern des Datums</translation>
    </message>
    <message>
        <source>This could not be undone.</source>
        <translation>Dies konnte nicht rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>Who is this quote for?</source>
        <translation>Für wen ist dieses Angebot?</translation>
    </message>
    <message>
        <source>&amp;Customer</source>
        <translation>K&amp;unde</translation>
    </message>
    <message>
        <source>Quote &amp;number</source>
        <translation>An&amp;gebotsnummer</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>Da&amp;tum</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Öffnen…</translation>
    </message>
    <message>
        <source>Open Sa&amp;mple</source>
        <translation>Beispiel ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Product</source>
        <translation>&amp;Artikel</translation>
    </message>
    <message>
        <source>New quote</source>
        <translation>Neues Angebot</translation>
    </message>
    <message>
        <source>%1[*] – Orvan Desk</source>
        <translation>%1[*] – Orvan Desk</translation>
    </message>
    <message>
        <source>the customer</source>
        <translation>der Kunde</translation>
    </message>
    <message>
        <source>the quote number</source>
        <translation>die Angebotsnummer</translation>
    </message>
    <message>
        <source>the date</source>
        <translation>das Datum</translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>1 Artikel</translation>
    </message>
    <message numerus="yes">
        <source>%n products</source>
        <translation>
            <numerusform>%n Artikel</numerusform>
            <numerusform>%n Artikel</numerusform>
        </translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Another desk ended without closing this quote: %1.</source>
        <translation>Orvan Desk wurde an anderer Stelle beendet, ohne dieses Angebot zu schließen: %1.</translation>
    </message>
    <message>
        <source>“%1” could not be opened.</source>
        <translation>„%1“ konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>A new quote could not be made.</source>
        <translation>Ein neues Angebot konnte nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Open Quote</source>
        <translation>Angebot öffnen</translation>
    </message>
    <message>
        <source>Quotes (*.quote.json);;All files (*)</source>
        <translation>Angebote (*.quote.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>Save Quote</source>
        <translation>Angebot speichern</translation>
    </message>
    <message>
        <source>“%1” has been saved.</source>
        <translation>„%1“ wurde gespeichert.</translation>
    </message>
    <message>
        <source>“%1” could not be saved.</source>
        <translation>„%1“ konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Save the changes to this quote?</source>
        <translation>Möchten Sie die Änderungen an diesem Angebot speichern?</translation>
    </message>
    <message>
        <source>Changes that are not saved will be lost.</source>
        <translation>Nicht gespeicherte Änderungen gehen verloren.</translation>
    </message>
    <message>
        <source>a quote without a file</source>
        <translation>einem Angebot ohne Datei</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>The desk ended at %1 with unsaved changes to %2.

Changed: %3.</source>
        <translation>Orvan Desk endete am %1 mit nicht gespeicherten Änderungen an %2.

Geändert: %3.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>The recovery copy “%1” cannot be read.</source>
        <translation>Die Wiederherstellungskopie „%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The unsaved changes could not be recovered.</source>
        <translation>Die nicht gespeicherten Änderungen konnten nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>the currency</source>
        <translation>die Währung</translation>
    </message>
    <message>
        <source>Quote Curre&amp;ncy…</source>
        <translation>&amp;Währung des Angebots…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Quote Currency</source>
        <translation>Ändern der Währung</translation>
    </message>
    <message>
        <source>The currency could not be changed.</source>
        <translation>Die Währung konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>&amp;Company Catalogue…</source>
        <translation>&amp;Firmenkatalog …</translation>
    </message>
    <message>
        <source>Company Catalogue</source>
        <translation>Firmenkatalog</translation>
    </message>
    <message>
        <source>The address of the server, such as postgresql://user@server/database.
Without an address, products are looked up in this computer&apos;s own catalogue.</source>
        <translation>Die Adresse des Servers, zum Beispiel postgresql://benutzer@server/datenbank.
Ohne Adresse werden Artikel im eigenen Katalog dieses Rechners gesucht.</translation>
    </message>
    <message>
        <source>An address begins with postgresql://</source>
        <translation>Eine Adresse beginnt mit postgresql://</translation>
    </message>
    <message>
        <source>This address cannot be used.</source>
        <translation>Diese Adresse kann nicht benutzt werden.</translation>
    </message>
    <message>
        <source>%1 (read only)</source>
        <translation>%1 (nur zum Lesen)</translation>
    </message>
    <message>
        <source>E&amp;xplain…</source>
        <translation>E&amp;rklären…</translation>
    </message>
    <message>
        <source>F9</source>
        <translation>F9</translation>
    </message>
    <message>
        <source>The amounts could not be explained.</source>
        <translation>Die Beträge konnten nicht erklärt werden.</translation>
    </message>
    <message>
        <source>Some settings of this computer cannot be used.</source>
        <translation>Einige Einstellungen dieses Computers sind nicht verwendbar.</translation>
    </message>
    <message>
        <source>Copy &amp;Details for Support</source>
        <translation>&amp;Angaben für den Support kopieren</translation>
    </message>
    <message>
        <source>The details for support could not be copied.</source>
        <translation>Die Angaben für den Support konnten nicht kopiert werden.</translation>
    </message>
    <message>
        <source>The details for support have been copied.</source>
        <translation>Die Angaben für den Support wurden kopiert.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::PriceListDialog</name>
    <message>
        <source>1 row</source>
        <translation>1 Zeile</translation>
    </message>
    <message numerus="yes">
        <source>%Ln rows</source>
        <translation>
            <numerusform>%Ln Zeile</numerusform>
            <numerusform>%Ln Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>1 Artikel</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>%Ln Artikel</numerusform>
            <numerusform>%Ln Artikel</numerusform>
        </translation>
    </message>
    <message>
        <source>Unicode (UTF-8)</source>
        <translation>Unicode (UTF-8)</translation>
    </message>
    <message>
        <source>Unicode (UTF-16)</source>
        <translation>Unicode (UTF-16)</translation>
    </message>
    <message>
        <source>Western Europe (Windows-1252)</source>
        <translation>Westeuropa (Windows-1252)</translation>
    </message>
    <message>
        <source>Central Europe (Windows-1250)</source>
        <translation>Mitteleuropa (Windows-1250)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows-1251)</source>
        <translation>Kyrillisch (Windows-1251)</translation>
    </message>
    <message>
        <source>Greek (Windows-1253)</source>
        <translation>Griechisch (Windows-1253)</translation>
    </message>
    <message>
        <source>Turkish (Windows-1254)</source>
        <translation>Türkisch (Windows-1254)</translation>
    </message>
    <message>
        <source>Central Europe (ISO 8859-2)</source>
        <translation>Mitteleuropa (ISO 8859-2)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO 8859-5)</source>
        <translation>Kyrillisch (ISO 8859-5)</translation>
    </message>
    <message>
        <source>Cyrillic (KOI8-R)</source>
        <translation>Kyrillisch (KOI8-R)</translation>
    </message>
    <message>
        <source>Western Europe (DOS)</source>
        <translation>Westeuropa (DOS)</translation>
    </message>
    <message>
        <source>Import Price List “%1”</source>
        <translation>Preisliste „%1“ importieren</translation>
    </message>
    <message>
        <source>What was understood of the list</source>
        <translation>Was von der Liste verstanden wurde</translation>
    </message>
    <message>
        <source>Rows that cannot be imported</source>
        <translation>Zeilen, die nicht importiert werden können</translation>
    </message>
    <message>
        <source>&amp;Leave out the rows that have errors</source>
        <translation>Zeilen mit &amp;Fehlern auslassen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>&amp;Sheet</source>
        <translation>&amp;Tabellenblatt</translation>
    </message>
    <message>
        <source>&amp;Encoding</source>
        <translation>&amp;Zeichencodierung</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>T&amp;rennzeichen</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>&amp;Dezimalzeichen</translation>
    </message>
    <message>
        <source>Line with the &amp;names of the columns</source>
        <translation>Zeile mit den Spalten&amp;namen</translation>
    </message>
    <message>
        <source>First line with a &amp;product</source>
        <translation>Erste Zeile mit einem Artike&amp;l</translation>
    </message>
    <message>
        <source>Choose above which column has the name or the part number.</source>
        <translation>Wählen Sie oben, welche Spalte den Namen oder die Artikelnummer hat.</translation>
    </message>
    <message>
        <source>Prices such as “%1” can be read in two ways. Choose the decimals above.</source>
        <translation>Preise wie „%1“ können auf zwei Arten gelesen werden. Wählen Sie oben das Dezimalzeichen.</translation>
    </message>
    <message>
        <source>The list has no products to import.</source>
        <translation>Die Liste hat keine Artikel, die importiert werden können.</translation>
    </message>
    <message>
        <source>Nothing can be imported, because of errors in %1.</source>
        <translation>Wegen Fehlern kann nichts importiert werden: %1.</translation>
    </message>
    <message>
        <source>%1 understood.</source>
        <translation>%1 verstanden.</translation>
    </message>
    <message>
        <source>More than %1 understood.</source>
        <translation>Mehr als %1 verstanden.</translation>
    </message>
    <message>
        <source>No column has the unit price.</source>
        <translation>Keine Spalte hat den Einzelpreis.</translation>
    </message>
    <message>
        <source>%1 without a price.</source>
        <translation>%1 ohne Preis.</translation>
    </message>
    <message>
        <source>No column has the part number.</source>
        <translation>Keine Spalte hat die Artikelnummer.</translation>
    </message>
    <message>
        <source>No column has the name.</source>
        <translation>Keine Spalte hat den Namen.</translation>
    </message>
    <message>
        <source>%1 left out because of errors.</source>
        <translation>%1 wegen Fehlern ausgelassen.</translation>
    </message>
    <message>
        <source>%1 skipped: blank, repeated headers, totals.</source>
        <translation>%1 übersprungen: leere, wiederholte Kopfzeilen, Summen.</translation>
    </message>
    <message>
        <source>Line %L1: %2</source>
        <translation>Zeile %L1: %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 mehr</translation>
    </message>
    <message>
        <source>&amp;Import %1</source>
        <translation>%1 &amp;importieren</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>Item id</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Part number</source>
        <translation>Artikelnummer</translation>
    </message>
    <message>
        <source>Barcode</source>
        <translation>Strichcode</translation>
    </message>
    <message>
        <source>Unit price</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Column %L1</source>
        <translation>Spalte %L1</translation>
    </message>
    <message>
        <source>%L1 !</source>
        <translation>%L1 !</translation>
    </message>
    <message>
        <source>(not imported)</source>
        <translation>(nicht importiert)</translation>
    </message>
    <message>
        <source>What column %L1 has</source>
        <translation>Was die Spalte %L1 hat</translation>
    </message>
</context>
<context>
    <name>orvan::desk::PrintActions</name>
    <message>
        <source>Page Set&amp;up…</source>
        <translation>Seite &amp;einrichten…</translation>
    </message>
    <message>
        <source>&amp;Letterhead and Columns…</source>
        <translation>Brief&amp;kopf und Spalten…</translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation>Druck&amp;vorschau…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken…</translation>
    </message>
    <message>
        <source>&amp;Export as PDF…</source>
        <translation>Als &amp;PDF exportieren…</translation>
    </message>
    <message>
        <source>Some print settings cannot be used.</source>
        <translation>Einige Druckeinstellungen können nicht verwendet werden.</translation>
    </message>
    <message>
        <source>The print settings could not be kept.</source>
        <translation>Die Druckeinstellungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>The quote is printed without some of its parts.</source>
        <translation>Das Angebot wird ohne einige seiner Teile gedruckt.</translation>
    </message>
    <message>
        <source>The page could not be set up.</source>
        <translation>Die Seite konnte nicht eingerichtet werden.</translation>
    </message>
    <message>
        <source>The letterhead could not be changed.</source>
        <translation>Der Briefkopf konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>The quote could not be previewed.</source>
        <translation>Die Druckvorschau des Angebots konnte nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>Print Preview</source>
        <translation>Druckvorschau</translation>
    </message>
    <message>
        <source>The quote could not be printed.</source>
        <translation>Das Angebot konnte nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>The quote has been printed.</source>
        <translation>Das Angebot wurde gedruckt.</translation>
    </message>
    <message>
        <source>The printer “%1” does not take it.</source>
        <translation>Der Drucker „%1“ nimmt es nicht an.</translation>
    </message>
    <message>
        <source>The quote could not be exported.</source>
        <translation>Das Angebot konnte nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>PDF files (*.pdf);;All files (*)</source>
        <translation>PDF-Dateien (*.pdf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>“%1” could not be written.</source>
        <translation>„%1“ konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>“%1” has been written.</source>
        <translation>„%1“ wurde geschrieben.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::QuoteHistory</name>
    <message>
        <source>Add %1</source>
        <translation>Hinzufügen von %1</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>Duplizieren von %1</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n Products</source>
        <translation>
            <numerusform>Duplizieren von einem Artikel</numerusform>
            <numerusform>Duplizieren von %n Artikeln</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation>Einfügen von %1</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n Products</source>
        <translation>
            <numerusform>Einfügen von einem Artikel</numerusform>
            <numerusform>Einfügen von %n Artikeln</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Löschen von %1</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Products</source>
        <translation>
            <numerusform>Löschen von einem Artikel</numerusform>
            <numerusform>Löschen von %n Artikeln</numerusform>
        </translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>Bearbeiten von %1</translation>
    </message>
    <message>
        <source>Move Products</source>
        <translation>Verschieben von Artikeln</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;herstellen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>Wieder&amp;herstellen: %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
</context>
<context>
    <name>orvan::desk::RecentFiles</name>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>No Quotes Yet</source>
        <translation>Noch keine Angebote</translation>
    </message>
    <message>
        <source>&amp;Clear This List</source>
        <translation>Diese Liste &amp;leeren</translation>
    </message>
    <message>
        <source>“%1” is not in %2 any more, or its drive is not connected.</source>
        <translation>„%1“ ist nicht mehr in %2, oder das Laufwerk ist nicht angeschlossen.</translation>
    </message>
    <message>
        <source>&amp;Remove from the List</source>
        <translation>Aus der Liste &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
</context>
<context>
    <name>orvan::desk::RecordingAction</name>
    <message>
        <source>&amp;Record What I Do</source>
        <translation>&amp;Aufzeichnen, was ich tue</translation>
    </message>
    <message>
        <source>Record what you do with the products?</source>
        <translation>Aufzeichnen, was Sie mit den Produkten tun?</translation>
    </message>
    <message>
        <source>The recording holds all keys and clicks in the list and the editor, the products with their prices and notes, and what the catalogue answers. Customer and quote number are not in it. It is kept in “%1”, where only you can read it, and goes to nobody by itself.

It ends when you choose this command again, or close the window.</source>
        <translation>Die Aufzeichnung enthält alle Tasten und Klicks in der Liste und im Editor, die Produkte mit ihren Preisen und Notizen und was der Katalog antwortet. Kunde und Angebotsnummer sind nicht darin. Sie liegt in „%1“, wo nur Sie sie lesen können, und geht von selbst an niemanden.

Sie endet, wenn Sie diesen Befehl noch einmal wählen oder das Fenster schließen.</translation>
    </message>
    <message>
        <source>&amp;Record</source>
        <translation>&amp;Aufzeichnen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung läuft</translation>
    </message>
    <message>
        <source>The recording could not be started.</source>
        <translation>Die Aufzeichnung konnte nicht begonnen werden.</translation>
    </message>
    <message>
        <source>The recording has ended. It is kept in “%1”.</source>
        <translation>Die Aufzeichnung ist beendet. Sie liegt in „%1“.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::StatusLine</name>
    <message numerus="yes">
        <source>%Ln without price</source>
        <translation>
            <numerusform>%Ln ohne Preis</numerusform>
            <numerusform>%Ln ohne Preis</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln without name</source>
        <translation>
            <numerusform>%Ln ohne Name</numerusform>
            <numerusform>%Ln ohne Name</numerusform>
        </translation>
    </message>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>gestern</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>vor %Ln Tag</numerusform>
            <numerusform>vor %Ln Tagen</numerusform>
        </translation>
    </message>
    <message>
        <source>on %1</source>
        <translation>am %1</translation>
    </message>
    <message>
        <source>No catalogue</source>
        <translation>Kein Katalog</translation>
    </message>
    <message>
        <source>“%1”: %2, imported %3</source>
        <translation>„%1“: %2, importiert %3</translation>
    </message>
    <message>
        <source>1 entry</source>
        <translation>1 Eintrag</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>%Ln Eintrag</numerusform>
            <numerusform>%Ln Einträge</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” cannot be read</source>
        <translation>„%1“ kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Gespeichert.</translation>
    </message>
    <message>
        <source>Saved. %1.</source>
        <translation>Gespeichert. %1.</translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>1 Artikel</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>%Ln Artikel</numerusform>
            <numerusform>%Ln Artikel</numerusform>
        </translation>
    </message>
    <message>
        <source>Unsaved since %1</source>
        <translation>Nicht gespeichert seit %1</translation>
    </message>
    <message>
        <source>The quote holds more than can be saved</source>
        <translation>Das Angebot enthält mehr, als gespeichert werden kann</translation>
    </message>
    <message>
        <source>The quote holds %L1 % of what it can hold</source>
        <translation>Das Angebot ist zu %L1 % voll</translation>
    </message>
</context>
</TS>
