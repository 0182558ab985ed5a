// The module orvan_postgres: makes connections for the library that has loaded it.

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/server/libpq/Link.h"

#include <new>

extern "C" ORVAN_EXPORT orvan::ServerLink* orvanMakeServerLink(orvan::ServerWatch& watch)
{
    return new (std::nothrow) orvan::libpq::Link(watch);
}
