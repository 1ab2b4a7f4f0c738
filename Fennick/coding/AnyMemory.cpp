#include "Fennick/coding/AnyMemory.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

namespace Fennick::AnyMemory {

struct Page {
    std::atomic<std::size_t> pieces;
};

namespace {

constexpr std::size_t smallestPage = 256;
constexpr std::size_t largestPage = 16 * 1024;
constexpr std::size_t largestPiece = largestPage / 4;
// What a page counts while it is being filled: more than it can ever hold.
constexpr std::size_t beingFilled = std::size_t{1} << 32;

// In front of every piece.
struct Header {
    Page* page;  // null: the piece stands alone
};

thread_local Paged* paged = nullptr;

// What is given but not yet counted off.
struct Given {
    bool isGathering = false;
    Page* page = nullptr;
    std::size_t pieces = 0;
};
thread_local Given given;

void countOff(Page* page, std::size_t pieces) noexcept
{
    if (page->pieces.fetch_sub(pieces, std::memory_order_acq_rel) == pieces) ::operator delete(page);
}

void countOffGiven() noexcept
{
    if (given.pieces > 0) countOff(given.page, std::exchange(given.pieces, 0));
}

void* pieceAt(void* memory, Page* page)
{
    return new (memory) Header{page} + 1;
}

void* takeAlone(std::size_t bytes)
{
    return pieceAt(::operator new(sizeof(Header) + bytes), nullptr);
}

}  // namespace

void* take(std::size_t bytes)
{
    if (paged != nullptr && bytes <= largestPiece) return paged->take(bytes);
    return takeAlone(bytes);
}

void give(void* piece) noexcept
{
    Header* header = static_cast<Header*>(piece) - 1;
    Page* page = header->page;
    if (page == nullptr) return ::operator delete(header);
    if (!given.isGathering) return countOff(page, 1);
    if (page != given.page) {
        countOffGiven();
        given.page = page;
    }
    ++given.pieces;
}

Paged::Paged() noexcept : outer_(std::exchange(paged, this)), size_(smallestPage) {}

Paged::~Paged()
{
    leavePage();
    paged = outer_;
}

void* Paged::take(std::size_t bytes)
{
    if (std::exchange(isFirst_, false)) return takeAlone(bytes);  // many a reading is of one piece
    const std::size_t size = sizeof(Header) + (bytes + sizeof(Header) - 1) / sizeof(Header) * sizeof(Header);
    if (static_cast<std::size_t>(end_ - next_) < size) turnPage(size);
    ++taken_;
    return pieceAt(std::exchange(next_, next_ + size), page_);
}

void Paged::turnPage(std::size_t atLeast)
{
    leavePage();
    const std::size_t size = std::max(size_, sizeof(Page) + atLeast);
    auto* memory = static_cast<std::byte*>(::operator new(size));
    page_ = new (memory) Page{beingFilled};
    next_ = memory + sizeof(Page);
    end_ = memory + size;
    size_ = std::min(size_ * 2, largestPage);
}

void Paged::leavePage() noexcept
{
    if (page_ != nullptr) countOff(page_, beingFilled - taken_);
    page_ = nullptr;
    next_ = end_ = nullptr;
    taken_ = 0;
}

Giving::Giving() noexcept : isOutermost_(!std::exchange(given.isGathering, true)) {}

Giving::~Giving()
{
    if (!isOutermost_) return;
    countOffGiven();
    given.isGathering = false;
    given.page = nullptr;
}

}  // namespace Fennick::AnyMemory
