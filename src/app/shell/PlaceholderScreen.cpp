#include "app/shell/PlaceholderScreen.h"

#include "app/components/EmptyState.h"

#include <cstdlib>

namespace brisklog {

using namespace Qt::StringLiterals;

QWidget* makePlaceholderScreen(int section) {
    switch (section) {
    case 0:
        return new EmptyState(
            {.symbol = u"chart.bar.xaxis"_s,
             .headline = u"Dashboard"_s,
             .sentence = u"Hier erscheinen die Arbeitszeit von heute und der letzten sieben Tage, die "
                         u"Projekte und der Umsatz der letzten drei Monate."_s});
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
