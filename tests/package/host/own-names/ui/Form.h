// See base/Currency.h.
#pragma once

#include "ui/Control.h"

struct Form { // a paper form
    Control dial;
    int pages;
};
