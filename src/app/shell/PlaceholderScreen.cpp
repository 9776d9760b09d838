#include "app/shell/PlaceholderScreen.h"

#include "app/components/EmptyState.h"

#include <cstdlib>

namespace brisklog {

using namespace Qt::StringLiterals;

QWidget* makePlaceholderScreen(int section) {
    switch (section) {
    case 3:
        return new EmptyState({.symbol = u"gearshape.fill"_s,
                               .headline = u"Einstellungen"_s,
                               .sentence =
                                   u"Hier lassen sich bald das Farbschema wählen und das Rechnungsarchiv "
                                   u"öffnen."_s});
    default:
        std::abort();
    }
}

} // namespace brisklog
