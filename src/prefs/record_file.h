#pragma once
// A random-access file of fixed 100-byte records, as the preference file is kept. Record n
// (from 1) lies at byte (n - 1) * 100. A field written into a record replaces only its own bytes;
// the rest of the record stays as the file held it, and a file that is too short grows with
// zero bytes up to the end of the record written.

#include <cstdint>
#include <fstream>
#include <string>

namespace vellant::prefs {

class RecordFile {
public:
    static constexpr std::int64_t kRecordLength = 100;

    enum class Access { Read, ReadWrite };

    RecordFile() = default;
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    // Read access needs an existing file (error 53); read-write creates it (error 75 when the
    // place can't be written).
    void open(const std::string& path, Access access);
    void close();
    bool isOpen() const { return stream_.is_open(); }

    // A record beyond the end of the file reads as zeros: no error.
    std::int16_t readInt16(std::int64_t record);
    void writeInt16(std::int64_t record, std::int16_t value);

    // The whole record as one-byte characters; bytes beyond the end of the file read as blanks.
    std::string readText(std::int64_t record);
    // Left-aligned in the record: cut at 100 characters, padded with blanks.
    void writeText(std::int64_t record, const std::string& text);

private:
    std::string readBytes(std::int64_t record, std::int64_t count, char pastEnd);
    void writeBytes(std::int64_t record, const std::string& bytes);
    std::int64_t fileSize();
    void requireOpen() const;

    std::fstream stream_;
    Access access_ = Access::Read;
};

} // namespace vellant::prefs
