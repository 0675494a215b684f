// The program's entry: searches the command line, shows the option box or runs the main dialog
// (with the tray icon when asked), and returns the dialog's result as the exit code.

#include "app/CMainDialog.h"
#include "app/CTrayControl.h"
#include "app/CommandLine.h"
#include "app/PlatformChoice.h"
#include "app/QtTranslations.h"
#include "app/QtUHMappingUtils.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QSystemTrayIcon>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // The installed theme's icon, else the one built in.
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("paneltune"),
                                                 QIcon(QStringLiteral(":/icons/paneltune.svg"))));
    std::vector<std::string> arguments;
    for (const QString& argument : application.arguments().mid(1)) {
        arguments.push_back(argument.toStdString());
    }
    const SCommandLine commandLine = ParseCommandLine(JoinArguments(arguments));
    InstallQtTranslations(commandLine.options.language.mLanguage.name);
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
    std::unique_ptr<CTrayControl> tray;
    if (commandLine.tray) {
        tray = std::make_unique<CTrayControl>(dialog, QSystemTrayIcon::isSystemTrayAvailable());
    }
    const int result = dialog.Run();
    RemoveRedirectPages();
    return result;
}
