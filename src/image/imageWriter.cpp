#include "image/imageWriters.h"

namespace image {

std::unique_ptr<Writer> makeWriter(Form form, std::ostream& out, std::size_t lineWidth)
{
    switch (form) {
    case Form::Text:
        break;
    case Form::Csv:
        return makeCsvWriter(out);
    case Form::Json:
        return makeJsonWriter(out);
    case Form::Svg:
        return makeSvgWriter(out);
    }
    return makeTextWriter(out, lineWidth);
}

} // namespace image
