#include "station/grids.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <sys/mman.h>
#include <vector>

namespace orvane {

namespace {

// Room is taken in steps of 2 MB. Large pages are not asked for: where memory is fragmented the
// system would first compact it, and a recording's first picture would wait for that.
constexpr std::size_t roomstep = std::size_t{2} << 20;

// Rooms of grids that are gone, with the bytes their grids wrote; enough for the grids of both sides.
struct Spare {
    void* data;
    std::size_t room, used;
};
constexpr std::size_t sparesbound = 6;
std::mutex sparesguard;
std::vector<Spare> spares;

void* freshroom(std::size_t room) {
    void* data =
        mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (data == MAP_FAILED) return nullptr;
    return data;
}

// A kept room of at least ROOM bytes, zeroed where it was written; null when none is kept.
void* spareroom(std::size_t& room) {
    std::lock_guard lock(sparesguard);
    for (auto it = spares.begin(); it != spares.end(); ++it) {
        if (it->room < room) continue;
        const Spare spare = *it;
        spares.erase(it);
        std::memset(spare.data, 0, spare.used);
        room = spare.room;
        return spare.data;
    }
    return nullptr;
}

void giveback(void* data, std::size_t room, std::size_t used) {
    {
        std::lock_guard lock(sparesguard);
        if (spares.size() < sparesbound) {
            spares.push_back({data, room, used});
            return;
        }
    }
    munmap(data, room);
}

} // namespace

GridMemory::~GridMemory() {
    if (data_) giveback(data_, room_, used_);
}

bool GridMemory::reserve(std::size_t bytes, std::size_t used) {
    if (bytes > room_) {
        std::size_t room = (bytes + roomstep - 1) / roomstep * roomstep;
        void* data = spareroom(room);
        if (!data) data = freshroom(room);
        if (!data) return false;
        if (data_) {
            std::memcpy(data, data_, used_);
            giveback(data_, room_, used_);
        }
        data_ = data;
        room_ = room;
    }
    used_ = std::max(used_, used);
    return true;
}

} // namespace orvane
