// The tracks kept so far in a run, remembered as temporary rows of the catalogue's table so that
// the catalogue's own idea of equal titles decides.
#pragma once

#include <memory>

#include "jet/database.h"
#include "newcd/copyrules.h"
#include "newcd/worklist.h"

namespace newcd {

// Deletes every marker row; what there is was left by a program that kept them in the file and was
// killed.
void deleteMarkerRows(jet::Database& catalogue);

// Markers live in one transaction that is never committed: they are gone when the object is, and a
// crash cannot leave one in the file. No other transaction may begin meanwhile.
class MarkerRows {
  public:
    explicit MarkerRows(jet::Database& catalogue);

    // Whether a track kept before is the same as far as `rule` looks.
    bool has(DuplicateRule rule, const Track& track);
    void add(const Track& track);

  private:
    jet::Database& catalogue_;
    jet::Transaction transaction_;
    std::unique_ptr<jet::Recordset> table_;
};

}  // namespace newcd
