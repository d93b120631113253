// The largest circuit there is: three tracks of 501 pieces, all within the view.
#pragma once

#include "catalogue/catalogue.h"
#include "model/project.h"

namespace pistaro {

/// The catalogue, made once as a program makes it.
const Catalogue& Pieces();

/// Laps of the grand prix sample, with numbers and a grid of dots every 10 cm.
Project FullCircuit();

} // namespace pistaro
