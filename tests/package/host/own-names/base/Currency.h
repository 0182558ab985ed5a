// A host's own header: its names are those of the library's folders, and mean something else.
#pragma once

struct Currency { // by name: "EUR"
    const char* code;
};
