#include "prefs/record_file.h"

#include "base/runtime_error.h"

#include <filesystem>

namespace vellant::prefs {

namespace {

std::int64_t recordOffset(std::int64_t record) {
    if (record < 1) raiseError(kErrBadRecordNumber);
    return (record - 1) * RecordFile::kRecordLength;
}

} // namespace

void RecordFile::open(const std::string& path, Access access) {
    if (isOpen()) raiseError(kErrFileAlreadyOpen);
    std::error_code ec;
    const bool exists = std::filesystem::exists(path, ec);
    if (access == Access::Read) {
        if (!exists) raiseError(kErrFileNotFound);
        stream_.open(path, std::ios::in | std::ios::binary);
    } else {
        if (!exists) std::ofstream(path, std::ios::binary | std::ios::app).close();
        stream_.open(path, std::ios::in | std::ios::out | std::ios::binary);
    }
    if (!stream_.is_open() || std::filesystem::is_directory(path, ec)) {
        stream_.close();
        raiseError(kErrPathFileAccess);
    }
    access_ = access;
}

void RecordFile::close() {
    if (stream_.is_open()) stream_.close();
    stream_.clear();
}

void RecordFile::requireOpen() const {
    if (!stream_.is_open()) raiseError(kErrBadFileNumber);
}

std::int64_t RecordFile::fileSize() {
    stream_.clear();
    stream_.seekg(0, std::ios::end);
    const auto size = static_cast<std::int64_t>(stream_.tellg());
    return size < 0 ? 0 : size;
}

std::string RecordFile::readBytes(std::int64_t record, std::int64_t count, char pastEnd) {
    requireOpen();
    const std::int64_t offset = recordOffset(record);
    std::string bytes(static_cast<size_t>(count), pastEnd);
    const std::int64_t size = fileSize();
    if (offset >= size) return bytes;
    const std::int64_t available = std::min(count, size - offset);
    stream_.clear();
    stream_.seekg(offset);
    stream_.read(bytes.data(), available);
    if (stream_.gcount() != available) raiseError(kErrPathFileAccess);
    return bytes;
}

void RecordFile::writeBytes(std::int64_t record, const std::string& bytes) {
    requireOpen();
    if (access_ != Access::ReadWrite) raiseError(kErrBadFileMode);
    const std::int64_t offset = recordOffset(record);
    const std::int64_t recordEnd = offset + kRecordLength;
    const std::int64_t size = fileSize();
    stream_.clear();
    if (size < recordEnd) {
        stream_.seekp(size);
        const std::string zeros(static_cast<size_t>(recordEnd - size), '\0');
        stream_.write(zeros.data(), static_cast<std::streamsize>(zeros.size()));
    }
    stream_.seekp(offset);
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream_.flush();
    if (!stream_) raiseError(kErrPathFileAccess);
}

std::int16_t RecordFile::readInt16(std::int64_t record) {
    const std::string b = readBytes(record, 2, '\0');
    const auto lo = static_cast<std::uint8_t>(b[0]);
    const auto hi = static_cast<std::uint8_t>(b[1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(lo | hi << 8));
}

void RecordFile::writeInt16(std::int64_t record, std::int16_t value) {
    const auto u = static_cast<std::uint16_t>(value);
    writeBytes(record, std::string{static_cast<char>(u & 0xFF), static_cast<char>(u >> 8)});
}

std::string RecordFile::readText(std::int64_t record) {
    return readBytes(record, kRecordLength, ' ');
}

void RecordFile::writeText(std::int64_t record, const std::string& text) {
    std::string field = text.substr(0, static_cast<size_t>(kRecordLength));
    field.resize(static_cast<size_t>(kRecordLength), ' ');
    writeBytes(record, field);
}

} // namespace vellant::prefs
