// Int128: the compiler's 128-bit integer under a name that passes -Wpedantic. GCC and Clang have it on every 64-bit
// system.
#pragma once

namespace orvan {

__extension__ typedef __int128 Int128;
__extension__ typedef unsigned __int128 UInt128;

} // namespace orvan
