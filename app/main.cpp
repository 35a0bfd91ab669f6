// The program's start and end.
#include <windows.h>

#include "app/program.h"
#include "platform/win32/ui/report.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        return app::Program().run();
    } catch (...) {
        platform::win32::reportCurrentException();
        return EXIT_FAILURE;
    }
}
