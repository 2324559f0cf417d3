#include "image/imageWriters.h"

namespace image {

std::unique_ptr<Writer> makeWriter(Form form, std::ostream& out, const Page& page)
{
    switch (form) {
    case Form::Text:
        break;
    case Form::Csv:
        return makeCsvWriter(out);
    case Form::Json:
        return makeJsonWriter(out);
    case Form::Svg:
        return makeSvgWriter(out, page.height);
    }
    return makeTextWriter(out, page.lineWidth);
}

} // namespace image
