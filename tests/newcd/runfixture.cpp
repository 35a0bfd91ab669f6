#include "tests/newcd/runfixture.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>

#include "tests/fakes/projectfiles.h"

#ifdef _WIN32
#include "platform/win32/filestore.h"
#else
#include "platform/posix/filestore.h"
#endif

namespace newcd {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<jet::FileStore> systemStore() {
#ifdef _WIN32
    return std::make_unique<platform::win32::Win32FileStore>();
#else
    return std::make_unique<platform::posix::PosixFileStore>();
#endif
}

fs::path newFolder() {
    std::random_device random;
    fs::path folder = fs::temp_directory_path() / ("newcd-test-" + std::to_string(random()));
    fs::create_directories(folder);
    return folder;
}

}  // namespace

CatalogueCopy::CatalogueCopy() : folder_(newFolder()), file_(folder_ / "Brivantole.mdb") {
    std::ofstream copy(file_, std::ios::binary);
    copy << fakes::shippedCatalogue();
    copy.close();
    store_ = systemStore();
    database_ = jet::Database::OpenDatabase(*store_, file_.u16string());
}

CatalogueCopy::~CatalogueCopy() {
    database_.reset();
    fs::remove_all(folder_);
}

void CatalogueCopy::addRow(std::u16string_view title, int64_t size, std::u16string_view type,
                           std::u16string_view path) {
    const auto table = database_->OpenRecordset(u"ListDonnees");
    table->AddNew();
    table->Fields(u"Nom").setValue(std::u16string(title));
    table->Fields(u"Fichier").setValue(std::u16string(path));
    table->Fields(u"Taille").setValue(size);
    table->Fields(u"Compilation").setValue(u"Ancien CD");
    table->Fields(u"Type").setValue(std::u16string(type));
    table->Update();
}

size_t CatalogueCopy::rowCount() {
    return database_->OpenRecordset(u"ListDonnees")->RecordCount();
}

size_t CatalogueCopy::markerCount() {
    return database_->OpenRecordset(u"SELECT * FROM ListDonnees WHERE Type=\"T\"")->RecordCount();
}

#ifdef _WIN32

size_t CatalogueCopy::markerCountInFile() const {
    return 0;
}

#else

size_t CatalogueCopy::markerCountInFile() const {
    // Type is the last column of the table.
    const std::string command =
        "mdb-export -H -Q -d '|' '" + file_.string() + "' ListDonnees | grep -c '|T$'";
    FILE* output = popen(command.c_str(), "r");
    std::array<char, 32> line{};
    const bool read = std::fgets(line.data(), static_cast<int>(line.size()), output) != nullptr;
    pclose(output);
    EXPECT_TRUE(read);
    return std::stoul(line.data());
}

#endif

void CatalogueCopy::spoil() const {
    constexpr size_t kPage = 4096;
    std::fstream file(file_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(kPage);
    const std::string zeros(std::filesystem::file_size(file_) - kPage, '\0');
    file.write(zeros.data(), static_cast<std::streamsize>(zeros.size()));
}

std::string CatalogueCopy::bytes() const {
    std::ifstream file(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

RunFixture::RunFixture() {
    catalogue::ResetDefaultExtensions(settings);
    for (int i = 0; i <= settings.NbExtensions; ++i)
        settings.ExtensionFlags(i, catalogue::copiedColumn) = 1;
    settings.CdRomDrive = u"E:";
    settings.CopyDestination = u"C:\\Musique";
    files.addFolder(u"C:\\Brivantole");
    files.addFolder(u"C:\\Musique");
    files.addFolder(u"E:");
}

void RunFixture::addFile(std::u16string_view path, size_t size) {
    files.addFile(path, std::string(size, 'x'));
}

void RunFixture::addTrack(std::u16string_view title, std::u16string_view path, int64_t size) {
    run.workList.add(title, path, size);
    ++scanState.ScanFileCount;
}

}  // namespace newcd
