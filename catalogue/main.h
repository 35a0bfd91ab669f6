// The program's start, which is also how the CD list is made anew after a change of the catalogue.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/system.h"

namespace catalogue {

// What the start does to the main window.
class MainWindow {
  public:
    virtual ~MainWindow() = default;
    virtual void clearList1() = 0;
    // The settings are read and the catalogue is open. Called once, before the window is shown.
    virtual void applySettings() = 0;
    // The rows of the CD list, which is empty.
    virtual void fillList1(const std::vector<std::u16string>& rows) = 0;
    virtual void show() = 0;
};

// What the program keeps from its start to its end.
struct Session {
    int& ScanAnswer;  // the stop answer that all long operations share; 0: go on; 1: stop
    std::u16string AppPath = {};  // the program directory, with one trailing backslash
    std::unique_ptr<jet::Database> Catalogue = nullptr;
    Settings settings = {};
    bool RefillOnly = false;  // Main only makes the CD list anew
};

// Where the start finds its files.
struct StartPlace {
    jet::FileStore& fileStore;  // must outlive the session's catalogue
    const platform::System& system;
    std::u16string workingDirectory;
};

// On the first pass finds the program directory, opens the catalogue, reads the settings, fills the
// CD list and shows the window; with RefillOnly it fills the CD list alone, of which no row is
// chosen then. Throws base::Error when the catalogue or the settings cannot be had or the CD names
// cannot be read: the first pass has then shown no window, and neither pass has written anything.
void Main(Session& session, MainWindow& window, const StartPlace& place);

// A pass with RefillOnly set, which is off again afterwards, also after an error.
void RefillCdList(Session& session, MainWindow& window, const StartPlace& place);

}  // namespace catalogue
