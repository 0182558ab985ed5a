// The subjects of the benchmarks: each function adds the rows and growths of one subject. There is one file per
// subject.
#pragma once

namespace orvan::bench {

class Suite;

void addAmounts(Suite& suite);        ///< E, F: amounts to text and back
void addProductsString(Suite& suite); ///< G: the list to its string and back
void addEditor(Suite& suite);         ///< C, H, I: the editor without a window
void addQtGrid(Suite& suite);         ///< A, B: the list in its window
void addQtForm(Suite& suite);         ///< D: a key in the editor's window
void addLookUp(Suite& suite);         ///< J, K, M: the look-up in the editor's window
void addImport(Suite& suite);         ///< L: a price list into a catalogue
void addDeskStart(Suite& suite);      ///< N: the desk up to its first paint
void addPrinting(Suite& suite);       ///< O: a quote as a PDF file
void addListCommands(Suite& suite);   ///< P: search, undo and copy in a long list
void addSearch(Suite& suite);         ///< Q: the catalogue's search by itself
void addServerCopy(Suite& suite);     ///< R: the local copy of a server's catalogue
void addTraceLines(Suite& suite);     ///< S: the lines of a key in the trace log
void addLongList(Suite& suite);       ///< T: a million products; one of many moved or deleted

} // namespace orvan::bench
