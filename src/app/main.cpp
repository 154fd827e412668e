#include "app/program.h"
#include "qt/platform/application.h"
#include "qt/theme/theme.h"

int main(int argc, char* argv[]) {
    using namespace orvent;
    qt::Application application(argc, argv);
    qt::Theme theme(qt::Theme::modeOf(QApplication::palette()));
    theme.apply(application);
    app::Program program(app::Places::ofUser(), theme);
    return program.start() ? QApplication::exec() : 0;
}
