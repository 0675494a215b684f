// The program's entry: searches the command line, shows the option box or runs the main dialog,
// and returns the dialog's result as the exit code.

#include "app/CMainDialog.h"
#include "app/CommandLine.h"
#include "app/PlatformChoice.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::vector<std::string> arguments;
    for (const QString& argument : application.arguments().mid(1)) {
        arguments.push_back(argument.toStdString());
    }
    const SCommandLine commandLine = ParseCommandLine(JoinArguments(arguments));
    if (commandLine.help) {
        QMessageBox box(QMessageBox::Information, QString::fromWCharArray(kHelpTitle),
                        QString::fromStdWString(HelpText()), QMessageBox::Ok);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        box.exec();
        return 0;
    }
    std::string message;
    std::shared_ptr<IDisplayPlatform> platform = MakePlatform(commandLine, message);
    if (!platform) {
        std::fprintf(stderr, "paneltune: %s\n", message.c_str());
        return 0;
    }
    SDisplayConfigOptions options = commandLine.options;
    options.factsStore = MakeFactsStore(commandLine);
    CMainDialog dialog(options, {platform, {}, {}});
    return dialog.Run();
}
