// differenceLines.cpp - differences for people.
#include "diff/differenceWords.h"
#include "diff/differenceWriter.h"
#include "diff/words.h"
#include "model/valueTexts.h"
#include "text/oneLine.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace diff {

namespace {

std::string placeIn(const WrittenFile& file, facts::Where where)
{
    const FilePlace place = file.source->placeOf(where);
    return file.shownName + ":"
           + (place.isLine ? std::to_string(place.number) : numberText(static_cast<std::uint32_t>(place.number)));
}

class LineWriter : public DifferenceWriter
{
public:
    LineWriter(std::ostream& out, WrittenFile before, WrittenFile after, const LineStyle& style)
        : m_out(out)
        , m_before(std::move(before))
        , m_after(std::move(after))
        , m_style(style)
    {}

    void write(const ComparedDevices& compared) override
    {
        m_uncompared += compared.problem.isEmpty() ? 0 : 1;
        if (compared.differences.empty())
            return;
        if (!m_isFirst)
            m_out << '\n';
        m_isFirst = false;
        writeWrapped(headOf(compared), {}, 0, "\x1b[1m");
        for (const Difference& difference : compared.differences)
            write(difference);
    }

    void end(const DifferenceCounts& counts) override
    {
        if (!m_style.hasSummary)
            return;
        m_out << (m_isFirst ? "" : "\n") << counts.all() << (counts.all() == 1 ? " difference" : " differences");
        if (counts.all() > 0)
            m_out << ": " << counts.breaking << " breaking, " << counts.behaviour << " behaviour, " << counts.text
                  << " text";
        if (m_uncompared > 0)
            m_out << "; " << m_uncompared << (m_uncompared == 1 ? " device was" : " devices were") << " not compared";
        m_out << '\n';
    }

private:
    void write(const Difference& difference)
    {
        constexpr std::array<std::string_view, 3> colors{"", "\x1b[33m", "\x1b[31m"};
        constexpr std::size_t indentation = 13; // the longest name of a weight, two blanks on either side
        std::string label = "  " + std::string(nameOf(difference.weight));
        label.resize(indentation, ' ');
        writeWrapped(wordsOf(difference), label, indentation, colors.at(static_cast<std::size_t>(difference.weight)));
        std::string places;
        if (difference.spot.before.has_value())
            places = placeIn(m_before, *difference.spot.before);
        if (difference.spot.after.has_value())
            places += (places.empty() ? "" : ", ") + placeIn(m_after, *difference.spot.after);
        writeWrapped(places, std::string(indentation, ' '), indentation, {});
    }

    /// Writes a text in lines that fit.
    /// @param label  in front of the first line; the color is that of the label, or of the text where there is none
    void writeWrapped(const std::string& text, const std::string& label, std::size_t indentation,
                      std::string_view color)
    {
        constexpr std::size_t least = 20; // columns for text; a terminal that is narrower breaks lines itself
        const std::size_t width =
            m_style.width > indentation + least ? m_style.width - indentation : std::min(m_style.width, least);
        const std::vector<std::string> lines = show::brokenInto(oneLine(text, DrawingHints::BecomeBlanks), width);
        for (std::size_t index = 0; index < lines.size(); ++index) {
            const bool hasLabel = index == 0 && !label.empty();
            if (hasLabel)
                writeColored(label, color);
            else
                m_out << std::string(indentation, ' ');
            if (label.empty())
                writeColored(lines[index], color);
            else
                m_out << lines[index];
            m_out << '\n';
        }
    }

    void writeColored(const std::string& text, std::string_view color)
    {
        if (m_style.hasColors && !color.empty())
            m_out << color << text << "\x1b[0m";
        else
            m_out << text;
    }

    std::ostream& m_out;
    const WrittenFile m_before;
    const WrittenFile m_after;
    const LineStyle m_style;
    bool m_isFirst = true;
    std::size_t m_uncompared = 0; ///< of what is told elsewhere
};

} // namespace

void DifferenceCounts::count(Weight weight)
{
    const std::array<std::size_t*, 3> counts{&text, &behaviour, &breaking};
    ++*counts.at(static_cast<std::size_t>(weight));
}

std::unique_ptr<DifferenceWriter> makeLineWriter(std::ostream& out, const WrittenFile& before, const WrittenFile& after,
                                                 const LineStyle& style)
{
    return std::make_unique<LineWriter>(out, before, after, style);
}

} // namespace diff
