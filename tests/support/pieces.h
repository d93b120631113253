// The catalogue that tests work with: what a program makes once at its start.
#pragma once

#include "catalogue/catalogue.h"

namespace pistaro {

inline const Catalogue& Pieces() {
    static const Catalogue catalogue = InitCatalogue();
    return catalogue;
}

} // namespace pistaro
