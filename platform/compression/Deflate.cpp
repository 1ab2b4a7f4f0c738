#include "platform/compression/Deflate.h"

#include <algorithm>
#include <new>

#include <zlib.h>

namespace Platform {

namespace {

constexpr std::size_t smallestChunk = 64;
constexpr std::size_t largestChunk = 65'536;
// zlib counts in unsigned int; a longer input or output is handed over in turns.
constexpr std::size_t mostAtOnce = 1U << 30;

uInt atOnce(std::size_t count)
{
    return static_cast<uInt>(std::min(count, mostAtOnce));
}

// One zlib stream with its input; ends with its owner.
class Stream {
public:
    using End = int (*)(z_stream*);

    Stream(DataView input, End end) : input_(input), end_(end) {}
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() { finish(); }

    z_stream& raw() { return stream_; }
    void begun(int answer) { open_ = answer == Z_OK; }
    bool isOpen() const { return open_; }

    std::size_t consumed() const { return taken_ - stream_.avail_in; }
    bool hasMoreInput() const { return taken_ < input_.size(); }

    void refill()
    {
        if (stream_.avail_in != 0) return;
        stream_.next_in = const_cast<Bytef*>(input_.data() + taken_);
        stream_.avail_in = atOnce(input_.size() - taken_);
        taken_ += stream_.avail_in;
    }

    void pointAt(Data& result, std::size_t used)
    {
        stream_.next_out = result.data() + used;
        stream_.avail_out = atOnce(result.size() - used);
    }

    bool finish()
    {
        if (!open_) return true;
        open_ = false;
        return end_(&stream_) == Z_OK;
    }

private:
    z_stream stream_{};
    DataView input_;
    End end_;
    std::size_t taken_ = 0;
    bool open_ = false;
};

// What the result will need, judged by what the input gave so far. Growing
// straight to it copies little; a sixteenth on top saves a last small step.
std::size_t projectedSize(std::size_t produced, std::size_t consumed, std::size_t total)
{
    if (consumed == 0) return produced * 2;
    const double whole = static_cast<double>(produced) / static_cast<double>(consumed) * static_cast<double>(total);
    const double most = static_cast<double>(produced) * 8;
    return static_cast<std::size_t>(std::min(whole + whole / 16, most));
}

std::size_t grownSize(const Data& result, const Stream& stream, std::size_t total, std::size_t cap)
{
    const std::size_t step = std::clamp(total, smallestChunk, largestChunk);
    const std::size_t projected = projectedSize(result.size(), stream.consumed(), total);
    return std::min(std::max(result.size(), projected) + step, cap);
}

// Lets the stream write until it ends; absent when it does not, or would pass the cap.
template <typename Process>
std::optional<Data> drain(Stream& stream, std::size_t total, std::size_t firstSize, std::size_t cap, Process process)
{
    Data result;
    result.reserve(std::max<std::size_t>(std::min(firstSize, cap), 1));  // zlib refuses a null place, even for no bytes
    result.resize(std::min(firstSize, cap));
    std::size_t used = 0;
    for (;;) {
        stream.refill();
        stream.pointAt(result, used);
        const uInt room = stream.raw().avail_out;
        const int answer = process(stream);
        used += room - stream.raw().avail_out;
        if (answer == Z_STREAM_END) break;
        if (answer != Z_OK && answer != Z_BUF_ERROR) return std::nullopt;
        // At its cap the result grows no more: a call without room tells a stream that just fits from a longer one.
        if (answer == Z_BUF_ERROR && room == 0) return std::nullopt;
        if (used == result.size()) {
            result.resize(grownSize(result, stream, total, cap));
        } else if (stream.raw().avail_in == 0 && !stream.hasMoreInput()) {
            return std::nullopt;  // room is left and input is not: the stream is cut
        }
    }
    if (!stream.finish()) return std::nullopt;
    result.resize(used);
    return result;
}

}  // namespace

std::optional<Data> deflate(DataView bytes)
try {
    if (bytes.empty()) return std::nullopt;
    Stream stream(bytes, deflateEnd);
    stream.begun(deflateInit2(&stream.raw(), Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY));
    if (!stream.isOpen()) return std::nullopt;
    // Small ones fit at once even where nothing can be packed.
    const std::size_t firstSize = std::min(bytes.size() + bytes.size() / 1000 + smallestChunk, largestChunk);
    return drain(stream, bytes.size(), firstSize, unlimitedSize,
                 [](Stream& s) { return ::deflate(&s.raw(), s.hasMoreInput() ? Z_NO_FLUSH : Z_FINISH); });
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

std::optional<Data> inflate(DataView bytes, Wrapper wrapper, std::size_t cap)
try {
    if (bytes.empty()) return std::nullopt;
    Stream stream(bytes, inflateEnd);
    constexpr int detectHeader = 32;
    stream.begun(inflateInit2(&stream.raw(), wrapper == Wrapper::none ? -MAX_WBITS : MAX_WBITS + detectHeader));
    if (!stream.isOpen()) return std::nullopt;
    const std::size_t firstSize = std::clamp(bytes.size() * 4, smallestChunk, 4 * largestChunk);
    return drain(stream, bytes.size(), firstSize, cap, [](Stream& s) { return ::inflate(&s.raw(), Z_SYNC_FLUSH); });
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

}  // namespace Platform
