#include "platform/file_system_object.h"

#include "base/runtime_error.h"

#include <cstdio>
#include <system_error>

namespace vellant::platform {

namespace {

constexpr unsigned kTempNameDigits = 5;

std::filesystem::path systemTemporaryFolder() {
    std::error_code ec;
    std::filesystem::path folder = std::filesystem::temp_directory_path(ec);
    return ec ? std::filesystem::path("/tmp") : folder;
}

std::string withoutTrailingSeparator(const std::filesystem::path& folder) {
    std::string text = folder.string();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

} // namespace

FileSystemObject::FileSystemObject(std::filesystem::path temporaryFolder)
    : temporaryFolder_(temporaryFolder.empty() ? systemTemporaryFolder()
                                               : std::move(temporaryFolder)),
      random_(std::random_device{}()) {}

bool FileSystemObject::fileexists(const std::string& path) const {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

std::string FileSystemObject::getspecialfolder(int folder) const {
    switch (folder) {
    case kWindowsFolder:
        return "/";
    case kSystemFolder:
        return "/usr/lib";
    case kTemporaryFolder:
        return withoutTrailingSeparator(temporaryFolder_);
    default:
        raiseError(kErrInvalidCall);
    }
}

std::string FileSystemObject::gettempname() {
    std::uniform_int_distribution<unsigned> digits(0, (1U << (4 * kTempNameDigits)) - 1);
    char name[16];
    std::snprintf(name, sizeof name, "rad%05X.tmp", digits(random_));
    return name;
}

void FileSystemObject::DeleteFile(const std::string& path) {
    if (!fileexists(path)) raiseError(kErrFileNotFound);
    std::error_code ec;
    if (!std::filesystem::remove(path, ec) || ec) raiseError(kErrPermissionDenied);
}

void registerFileSystemObject(AutomationRegistry& registry, std::filesystem::path temporaryFolder) {
    registry.registerClass(FileSystemObject::kClassName, [temporaryFolder] {
        return std::make_shared<FileSystemObject>(temporaryFolder);
    });
}

} // namespace vellant::platform
