// The input is a database file.
#include "fuzz/catalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::exercise(fakes::FileBytes(data, data + size));
    return 0;
}
