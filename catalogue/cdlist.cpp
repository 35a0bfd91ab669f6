#include "catalogue/cdlist.h"

#include <exception>
#include <variant>

#include "base/text.h"
#include "platform/report.h"

namespace catalogue {
namespace {

using platform::MessageFlags::Exclamation;
using platform::MessageFlags::OkOnly;
using platform::MessageFlags::YesNo;

std::u16string question(const std::optional<std::u16string>& name) {
    const std::u16string what = name ? u"le CD " + *name + u" ?" : u"tous les CD ?";
    return u"Etes-vous sur de vouloir supprimer\r\n" + what;
}

void deleteTracks(jet::Database& catalogue, const std::optional<std::u16string>& name) {
    std::u16string query = u"SELECT * from Listdonnees";
    if (name) query += u" where Compilation=" + base::quoted(*name);
    jet::Transaction transaction(catalogue);
    const std::unique_ptr<jet::Recordset> tracks = catalogue.OpenRecordset(query);
    while (!tracks->Eof()) {
        tracks->Delete();
        tracks->MoveNext();
    }
    tracks->Close();
    transaction.Commit();
}

}  // namespace

std::vector<std::u16string> CdListRows(jet::Database& catalogue) {
    std::vector<std::u16string> rows = {u"*** TOUS LES TITRES ***"};
    const std::unique_ptr<jet::Recordset> cds = catalogue.OpenRecordset(
        u"SELECT DISTINCT Compilation from Listdonnees order by Compilation");
    while (!cds->Eof()) {
        // A track without a CD's name belongs to none.
        const jet::Value name = cds->Fields(u"Compilation").Value();
        if (const auto* text = std::get_if<std::u16string>(&name)) rows.push_back(*text);
        cds->MoveNext();
    }
    cds->Close();
    return rows;
}

bool DeleteCd(jet::Database& catalogue, platform::Messages& messages,
              const std::optional<std::u16string>& name, const std::function<void()>& deleting) {
    const platform::Answer answer =
        messages.show(question(name), u"Attention !", YesNo | Exclamation);
    if (answer != platform::Answer::Yes) return false;
    deleting();
    try {
        deleteTracks(catalogue, name);
    } catch (const std::exception& error) {
        messages.show(platform::reportText(error), platform::kReportTitle, OkOnly | Exclamation);
    }
    return true;
}

}  // namespace catalogue
