// See base/Currency.h.
#pragma once

enum class Text { plain, rich };
