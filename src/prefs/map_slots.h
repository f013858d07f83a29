#pragma once
// Where a map's stored groups and user info lie in the preference file. Slot s has its base at
// record s * 100: the title at base + 1, the layer count at base + 2, and three records per layer
// from base + 10. Slots are 100 records apart while a layer takes three, so layers 31 to 33 run
// into the next slot's records; that overlap is kept, since the limit of 33 layers is part of
// the file format. All record numbers are 16-bit sums that raise error 6 past 32767: slot 328
// has no title record, and slot 327 keeps only its first 19 layers.

#include "prefs/record_file.h"

#include <cstdint>
#include <string>

namespace vellant::prefs {

constexpr int kMaxStoredLayers = 33;

// The title without the ":n" or ":nn" that marks a further window of one map. A title of one or
// two characters raises error 5, as the position test asks for a character before the first.
std::string mapprefname(const std::string& title);

std::int16_t slotTitleRecord(std::int16_t slot);
std::int16_t slotLayerCountRecord(std::int16_t slot);
std::int16_t slotLayerNameRecord(std::int16_t slot, std::int16_t layer);
std::int16_t slotLayerGroupRecord(std::int16_t slot, std::int16_t layer);
std::int16_t slotLayerUserInfoRecord(std::int16_t slot, std::int16_t layer);

// The record layer of a map slot over an open preference file. Texts come back with trailing
// blanks dropped, the user info with blanks dropped on both sides, as the grid takes them.
struct StoredLayer {
    std::string name;
    std::string group;
    std::string userInfo;
};

std::string readSlotTitle(RecordFile& file, std::int16_t slot);
std::int16_t readSlotLayerCount(RecordFile& file, std::int16_t slot);
std::string readSlotLayerName(RecordFile& file, std::int16_t slot, std::int16_t layer);
std::string readSlotLayerGroup(RecordFile& file, std::int16_t slot, std::int16_t layer);
std::string readSlotLayerUserInfo(RecordFile& file, std::int16_t slot, std::int16_t layer);

void writeSlotHeader(RecordFile& file, std::int16_t slot, const std::string& title,
                     std::int16_t layerCount);
void writeSlotLayer(RecordFile& file, std::int16_t slot, std::int16_t layer,
                    const StoredLayer& stored);

// The first slot from 1 to count whose title equals the given one, letter case respected; 0 when
// none does.
std::int16_t findSlot(RecordFile& file, std::int16_t slotCount, const std::string& title);

} // namespace vellant::prefs
