#include "views/planning/categoryicons.h"

#include "planning/catalogue.h"
#include "views/common/icons.h"

using namespace Qt::StringLiterals;

// Outside of any namespace, as the resource compiler's symbol is.
static void loadCategoryPictures()
{
    Q_INIT_RESOURCE(categories);
}

namespace categoryicons {

QIcon ofCategory(int category)
{
    if (category < 0)
        return {};
    static const auto pictures = [] {
        loadCategoryPictures();
        std::array<QIcon, Catalogue::categoryCount> all;
        for (size_t i = 0; i < all.size(); ++i)
            all[i] = icons::inPaletteInk(
                QIcon(u":/jobwright/categories/%1.svg"_s.arg(Catalogue::categories()[i])));
        return all;
    }();
    return pictures[static_cast<size_t>(category)];
}

} // namespace categoryicons
