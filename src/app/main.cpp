#include <cstdio>
#include <cstdlib>

#include "app/command_line.h"
#include "app/program.h"
#include "platform/fault.h"
#include "qt/platform/adapters.h"
#include "qt/platform/application.h"
#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"

int main(int argc, char* argv[]) {
    using namespace orvent;
    if (const auto answer = app::answerTo({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)})) {
        std::fputs(answer->c_str(), stdout);
        return 0;
    }
    qt::Application application(argc, argv);
    qt::Theme theme(qt::Theme::modeOf(QApplication::palette()));
    theme.apply(application);
    try {
        app::Program program(app::Places::ofUser(), theme);
        if (!program.start()) {
            return 0;
        }
        program.window().openFiles({argv + 1, argv + argc});
        return QApplication::exec();
    } catch (const platform::Fault& fault) {
        qt::QtMessageBox().tell(fault.description(), {}, platform::Icon::critical);
        return EXIT_FAILURE;
    }
}
