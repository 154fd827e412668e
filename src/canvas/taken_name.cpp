#include "canvas/taken_name.h"

namespace orvent::canvas {

void tellTakenName(platform::MessageBox& messages) {
    messages.tell("THIS NAME IS USED FOR ANOTHER NODE OF THE GRAPH.\nPLEASE GIVE ANOTHER NAME!", "DUPLICATE NAME!",
                  platform::Icon::critical);
}

}  // namespace orvent::canvas
