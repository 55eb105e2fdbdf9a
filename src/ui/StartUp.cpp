// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/StartUp.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLockFile>
#include <QScreen>
#include <QStandardPaths>

#include "core/MessageService.h"
#include "editor/CommandLine.h"
#include "editor/EditorState.h"
#include "editor/QtText.h"
#include "editor/RecoveryStore.h"
#include "model/PageObjectClasses.h"
#include "model/ScreenTwips.h"
#include "persist/DefinitionReaders.h"
#include "persist/DemoEnvironment.h"
#include "persist/FileIO_OClass.h"
#include "persist/Folders.h"
#include "persist/HostInstallation.h"
#include "ui/EditorDialogs.h"
#include "ui/GuardedApplication.h"
#include "ui/PageForm.h"
#include "ui/QtMessages.h"
#include "ui/TerminationSignal.h"

namespace paginox {

bool ConfirmSecondCopy() {
    std::string text = std::string("A copy of ") + kProgramTitle + " is already running." + kCrLf +
                       kCrLf + "Are you sure that you want to start another copy?";
    return Messages().Show(text, kProgramTitle, MsgButtons::YesNo, MsgIcon::Question) ==
           MsgAnswer::Yes;
}

QString InstanceLockPath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QDir::tempPath();
    return folder + "/paginox.lock";
}

int RunEditor(GuardedApplication& app) {
    QApplication::setApplicationName(kProgramTitle);
    // The installed desktop entry and icon, so that docks and task bars show the window as ours.
    QGuiApplication::setDesktopFileName("org.paginox.Paginox");
    QApplication::setWindowIcon(QIcon::fromTheme("org.paginox.Paginox"));
    QtMessages messages;
    ScopedMessageService useMessages(messages);

    // 1. Another copy running?
    QLockFile lock(InstanceLockPath());
    lock.setStaleLockTime(0);
    if (!lock.tryLock(0) && !ConfirmSecondCopy()) return 0;

    // 2. The screen's twips per pixel, asked each time they are needed.
    SetTwipsPerPixelSource([] {
        QScreen* screen = QGuiApplication::primaryScreen();
        float dpiX = screen ? static_cast<float>(screen->logicalDotsPerInchX()) : 96.0f;
        float dpiY = screen ? static_cast<float>(screen->logicalDotsPerInchY()) : 96.0f;
        return TwipsPerPixel{1440.0f / dpiX, 1440.0f / dpiY};
    });

    // 3 to 5. The folders (a real installation or the demo copy) and the definitions.
    EditorState state;
    SetChosenHost(SavedHostChoice());
    state.UsingDemoData =
        InitFolders(FindSampleFolder(ToPath(QCoreApplication::applicationDirPath())));
    // A remembered choice that is gone was said once; the search decides from now on.
    if (!ChosenHost().empty() && CurrentHost().Kind != "chosen") SaveHostChoice("");
    LoadDefinitions(AppFolders(), LoadCatalogue);

    // 6 and 7. The selection marks live in the state; the window loads on the command line.
    QtDialogs dialogs;
    PageForm form(state, dialogs);
    RecoveryStore recovery(AppFolders().Path(kRecoveryFolder));
    form.SetRecovery(&recovery);
    app.OnEscapedError = [&form](const std::string& description) {
        form.OnUnexpectedError(description);
    };
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    std::vector<std::string> words;
    for (const QString& a : args) words.push_back(ToPath(a));
    form.Load(ParseArguments(words));
    TerminationSignal termination([&form] { form.OnTerminate(); });
    form.show();
    int status = app.exec();
    app.OnEscapedError = nullptr;
    return status;
}

}  // namespace paginox
