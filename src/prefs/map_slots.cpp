#include "prefs/map_slots.h"

#include "base/basic_text.h"
#include "base/int16.h"

namespace vellant::prefs {

std::string mapprefname(const std::string& title) {
    const long length = Len(title);
    std::string result = title;
    if (Mid(title, length - 2, 1) == ":") result = Left(title, length - 3);
    if (Mid(title, length - 1, 1) == ":") result = Left(title, length - 2);
    return result;
}

namespace {

Int16 slotBase(std::int16_t slot) {
    return Int16(slot) * Int16(100);
}

Int16 layerBase(std::int16_t slot, std::int16_t layer) {
    return slotBase(slot) + Int16(10) + Int16(3) * (Int16(layer) - Int16(1));
}

} // namespace

std::int16_t slotTitleRecord(std::int16_t slot) {
    return slotBase(slot) + Int16(1);
}
std::int16_t slotLayerCountRecord(std::int16_t slot) {
    return slotBase(slot) + Int16(2);
}
std::int16_t slotLayerNameRecord(std::int16_t slot, std::int16_t layer) {
    return layerBase(slot, layer);
}
std::int16_t slotLayerGroupRecord(std::int16_t slot, std::int16_t layer) {
    return layerBase(slot, layer) + Int16(1);
}
std::int16_t slotLayerUserInfoRecord(std::int16_t slot, std::int16_t layer) {
    return layerBase(slot, layer) + Int16(2);
}

std::string readSlotTitle(RecordFile& file, std::int16_t slot) {
    return RTrim(file.readText(slotTitleRecord(slot)));
}

std::int16_t readSlotLayerCount(RecordFile& file, std::int16_t slot) {
    return file.readInt16(slotLayerCountRecord(slot));
}

std::string readSlotLayerName(RecordFile& file, std::int16_t slot, std::int16_t layer) {
    return RTrim(file.readText(slotLayerNameRecord(slot, layer)));
}

std::string readSlotLayerGroup(RecordFile& file, std::int16_t slot, std::int16_t layer) {
    return RTrim(file.readText(slotLayerGroupRecord(slot, layer)));
}

std::string readSlotLayerUserInfo(RecordFile& file, std::int16_t slot, std::int16_t layer) {
    return Trim(file.readText(slotLayerUserInfoRecord(slot, layer)));
}

void writeSlotHeader(RecordFile& file, std::int16_t slot, const std::string& title,
                     std::int16_t layerCount) {
    file.writeText(slotTitleRecord(slot), title);
    file.writeInt16(slotLayerCountRecord(slot), layerCount);
}

void writeSlotLayer(RecordFile& file, std::int16_t slot, std::int16_t layer,
                    const StoredLayer& stored) {
    file.writeText(slotLayerNameRecord(slot, layer), stored.name);
    file.writeText(slotLayerGroupRecord(slot, layer), stored.group);
    file.writeText(slotLayerUserInfoRecord(slot, layer), stored.userInfo);
}

std::int16_t findSlot(RecordFile& file, std::int16_t slotCount, const std::string& title) {
    for (std::int16_t s = 1; s <= slotCount && s > 0; ++s)
        if (readSlotTitle(file, s) == title) return s;
    return 0;
}

} // namespace vellant::prefs
