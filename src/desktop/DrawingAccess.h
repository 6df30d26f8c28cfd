// Drawings for those who cannot see them: a list of what their places say.
#pragma once

namespace qel {

// From now on screen readers find the places of every area of drawings.
void TellPlacesOfDrawings();

}  // namespace qel
