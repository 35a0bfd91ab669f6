#include "catalogue/main.h"

#include "catalogue/cdlist.h"
#include "catalogue/settingsfile.h"
#include "catalogue/startup.h"

namespace catalogue {
namespace {

class Refilling {
  public:
    explicit Refilling(bool& RefillOnly) : RefillOnly_(RefillOnly) { RefillOnly_ = true; }
    Refilling(const Refilling&) = delete;
    Refilling& operator=(const Refilling&) = delete;
    ~Refilling() { RefillOnly_ = false; }

  private:
    bool& RefillOnly_;
};

}  // namespace

void Main(Session& session, MainWindow& window, const StartPlace& place) {
    session.ScanAnswer = 0;
    window.clearList1();
    if (!session.RefillOnly) {
        session.AppPath = AppPath(place.workingDirectory);
        session.Catalogue = OpenCatalogue(place.fileStore, session.AppPath);
        // In force until the file is read.
        ResetDefaultExtensions(session.settings);
        session.settings = LoadSettings(place.system.files, place.system.drives, session.AppPath,
                                        place.system.codePage);
        window.applySettings();
    }
    window.fillList1(CdListRows(*session.Catalogue));
    if (!session.RefillOnly) window.show();
}

void RefillCdList(Session& session, MainWindow& window, const StartPlace& place) {
    const Refilling refilling(session.RefillOnly);
    Main(session, window, place);
}

}  // namespace catalogue
