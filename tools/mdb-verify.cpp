// mdb-verify FILE...: checks Access databases page by page and tells what is wrong, and where.
// Changes nothing. Ends with 0 when all are sound, 1 when one is not, 2 when one cannot be opened.
#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <exception>
#include <span>

#include "base/error.h"
#include "base/text.h"
#include "jet/verifier.h"
#include "platform/posix/filestore.h"

namespace {

constexpr int kSound = 0;
constexpr int kDamaged = 1;
constexpr int kUnopened = 2;

void print(const jet::Verification& verification, const char* path) {
    std::printf("%s: %" PRIu32 " pages, %" PRIu32 " free, %" PRIu32 " of no use\n", path,
                verification.pages, verification.freePages, verification.lostPages);
    for (const jet::TableSummary& table : verification.tables)
        std::printf("  %s: %" PRIu64 " rows on %" PRIu32 " pages, %" PRIu64
                    " long values on %" PRIu32 " pages, %" PRIu32 " index pages\n",
                    base::toUtf8(table.name).c_str(), table.rows, table.rowPages, table.longValues,
                    table.longValuePages, table.indexPages);
    for (const jet::Finding& finding : verification.findings)
        std::printf("  %s: %s\n", base::toUtf8(finding.place).c_str(),
                    base::toUtf8(finding.text).c_str());
    std::puts(verification.findings.empty() ? "  sound" : "  DAMAGED");
}

int verify(const char* path) {
    platform::posix::PosixFileStore files;
    try {
        const jet::Verification verification = jet::verifyDatabase(files, base::fromUtf8(path));
        print(verification, path);
        return verification.findings.empty() ? kSound : kDamaged;
    } catch (const base::Error& error) {
        std::fprintf(stderr, "%s: %s\n", path, error.what());
        return kUnopened;
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char*> paths(argv, static_cast<size_t>(argc));
    if (paths.size() < 2) {
        std::fputs("usage: mdb-verify FILE...\n", stderr);
        return kUnopened;
    }
    int worst = kSound;
    for (const char* path : paths.subspan(1))
        worst = std::max(worst, verify(path));
    return worst;
}
