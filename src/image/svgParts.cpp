#include "image/svgParts.h"

#include <algorithm>

namespace image {

namespace {

constexpr int bitsPerByte = 8;

/// Puts one row after another.
class Painter
{
public:
    void add(const Pdo* pdo, const Row& row)
    {
        ++m_number;
        if (row.bits <= 0)
            return;
        Box box{pdo, &row, m_number, {}};
        std::int64_t bit = row.bit;
        const std::int64_t end = row.bit + row.bits;
        if (const int low = facts::bitInByte(bit); low != 0) {
            const auto bits = static_cast<int>(std::min<std::int64_t>(row.bits, bitsPerByte - low));
            box.parts.push_back({lastLine(), 1, low, low + bits - 1});
            bit += bits;
        }
        if (const std::int64_t bytes = (end - bit) / bitsPerByte; bytes > 0) {
            box.parts.push_back(wholeBytes(facts::byteOf(bit), bytes));
            bit += bytes * bitsPerByte;
        }
        if (bit < end) {
            m_picture.lines.push_back({facts::byteOf(bit), facts::byteOf(bit)});
            box.parts.push_back({lastLine(), 1, 0, static_cast<int>(end - bit) - 1});
        }
        m_picture.boxes.push_back(std::move(box));
    }

    [[nodiscard]] Picture end() { return std::move(m_picture); }

private:
    [[nodiscard]] std::size_t lastLine() const { return m_picture.lines.size() - 1; }

    Part wholeBytes(std::int64_t first, std::int64_t bytes)
    {
        const Part part{m_picture.lines.size(), bytes > maxBytesOnLines ? 1 : static_cast<std::size_t>(bytes), 0,
                        bitsPerByte - 1};
        if (bytes > maxBytesOnLines)
            m_picture.lines.push_back({first, first + bytes - 1});
        else
            for (std::int64_t byte = first; byte < first + bytes; ++byte)
                m_picture.lines.push_back({byte, byte});
        return part;
    }

    Picture m_picture;
    std::size_t m_number = 0;
};

} // namespace

Picture pictureOf(const Area& area)
{
    Painter painter;
    for (const Pdo& pdo : area.pdos)
        for (const Row& row : pdo.rows)
            painter.add(&pdo, row);
    if (area.padding.has_value())
        painter.add(nullptr, *area.padding);
    return painter.end();
}

} // namespace image
