#pragma once
// "Scripting.FileSystemObject", the desktop's file helper, with the members the program uses:
// whether a file exists, the special folders, a fresh temporary file name, deleting a file.
// Paths are the platform's own: folders come without a trailing separator.

#include "platform/automation.h"

#include <filesystem>
#include <random>
#include <string>

namespace vellant::platform {

class FileSystemObject : public AutomationObject {
public:
    static constexpr const char* kClassName = "Scripting.FileSystemObject";
    // The special folder numbers getspecialfolder takes.
    static constexpr int kWindowsFolder = 0;
    static constexpr int kSystemFolder = 1;
    static constexpr int kTemporaryFolder = 2;

    // The temporary folder is the system's unless the owner names another.
    explicit FileSystemObject(std::filesystem::path temporaryFolder = {});

    bool fileexists(const std::string& path) const;
    // The folder's path; error 5 for a number that names no folder.
    std::string getspecialfolder(int folder) const;
    // A name for a scratch file, "rad" and five hex digits then ".tmp", as the desktop makes
    // them; nothing is created, and two calls may meet by chance.
    std::string gettempname();
    // Error 53 when there is no such file, 70 when it cannot be removed.
    void DeleteFile(const std::string& path);

private:
    std::filesystem::path temporaryFolder_;
    std::mt19937 random_;
};

// Registers the class under its name, its objects using that temporary folder (the system's
// when empty). A registry has it from the start; owners call this to point it elsewhere.
void registerFileSystemObject(AutomationRegistry& registry,
                              std::filesystem::path temporaryFolder = {});

} // namespace vellant::platform
