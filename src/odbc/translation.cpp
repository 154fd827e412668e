#include "odbc/translation.h"

namespace orvent::odbc {

int Translation::parameter(int sent) const {
    int number = sent;
    // The connection's own parameters stand between the sender's; they are in rising order.
    for (const SequenceUse& use : sequences) {
        number += use.parameter <= number ? 1 : 0;
    }
    return number;
}

}  // namespace orvent::odbc
