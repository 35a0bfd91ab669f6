#include "jet/mapverifier.h"

#include <span>

#include "jet/pager.h"
#include "jet/usagemap.h"

namespace jet {

namespace {

class MapLister {
  public:
    MapLister(const Pager& pager, MapKind kind, Findings& findings)
        : pageCount_(pager.pageCount()), kind_(kind), findings_(findings) {}

    void take(uint64_t first, std::span<const uint8_t> bits) {
        const auto count = static_cast<uint32_t>(bits.size() * 8);
        for (uint32_t bit = findBit(bits, 0); bit < count; bit = findBit(bits, bit + 1)) {
            const uint64_t page = first + bit;
            if (page < pageCount_) {
                pages_.push_back(static_cast<uint32_t>(page));
                continue;
            }
            if (kind_ != MapKind::Global)
                findings_.add(u"Une table d'occupation nomme une page après la fin du fichier.",
                              static_cast<uint32_t>(page));
            return;
        }
    }

    std::vector<uint32_t> pages_;

  private:
    uint32_t pageCount_;
    MapKind kind_;
    Findings& findings_;
};

}  // namespace

std::vector<uint32_t> listMap(const Pager& pager, RowId where, MapKind kind, PageClaims& claims,
                              Findings& findings) {
    MapLister lister(pager, kind, findings);
    findings.attempt([&] {
        const MapRow row = readMapRow(pager, where);
        claims.claim(where.page(), PageUse::MapRows);
        if (!claims.claimMap(where)) return;
        if (!row.reference) {
            lister.take(row.first, {row.bits(), row.length - MapRow::kBitsAt});
            return;
        }
        const uint32_t perPage = pager.format().pagesPerMapPage();
        for (uint32_t index = 0; index < row.pointerCount(); ++index) {
            const uint32_t mapPage = row.pointer(index);
            if (mapPage == 0) continue;
            const std::span<const uint8_t> bits = mapPageBits(pager, mapPage);
            if (claims.claim(mapPage, PageUse::MapPage))
                lister.take(uint64_t{index} * perPage, bits);
        }
    });
    return std::move(lister.pages_);
}

}  // namespace jet
