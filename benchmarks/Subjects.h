// The subjects of the benchmarks: each adds its rows and growths. One file a subject.
#pragma once

namespace orvan::bench {

class Suite;

void addAmounts(Suite& suite);        ///< E, F: amounts to text and back
void addProductsString(Suite& suite); ///< G: the list to its string and back
void addEditor(Suite& suite);         ///< C, H, I: the editor without a window
void addQtGrid(Suite& suite);         ///< A, B: the list in its window
void addQtForm(Suite& suite);         ///< D: a key in the editor's window
void addLookUp(Suite& suite);         ///< J, K, M: the look-up in the editor's window

} // namespace orvan::bench
