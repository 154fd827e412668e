#include "qt/editors/entity_pictures.h"

#include <QGuiApplication>
#include <algorithm>

#include "qt/theme/icons.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

namespace {

struct PictureRow {
    std::string_view base;
    const char* icon;
};

constexpr PictureRow kPictures[] = {
    {"Graph", "graph"},       {"DB", "database"},       {"Activity", "activity"}, {"Activity-Out", "output"},
    {"Constant", "constant"}, {"Function", "function"}, {"RS", "record-set"},     {"Table", "table"},
    {"Field", "attribute"},   {"AttIn", "input"},       {"AttOut", "output"},     {"Param", "parameter"},
    {"Func", "function"},     {"Const", "constant"},
};

std::string_view baseOf(std::string_view image) {
    for (const std::string_view state : {"-Checked", "-UnChecked", "-UnderChecked"}) {
        if (image.ends_with(state)) {
            return image.substr(0, image.size() - state.size());
        }
    }
    return image;
}

}  // namespace

QIcon entityPicture(const std::string& image, std::int32_t colour) {
    const std::string_view base = baseOf(image);
    const auto* row = std::find_if(std::begin(kPictures), std::end(kPictures),
                                   [&](const PictureRow& each) { return each.base == base; });
    if (row == std::end(kPictures)) {
        return {};
    }
    return icon(QLatin1String(row->icon), colour == 0 ? QColor() : letterColour(colour, QGuiApplication::palette()));
}

}  // namespace orvent::qt
