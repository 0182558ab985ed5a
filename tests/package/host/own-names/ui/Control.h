// See base/Currency.h.
#pragma once

using Control = double; // a dial's position
