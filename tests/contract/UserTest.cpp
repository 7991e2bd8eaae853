// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Talking to the user: real dialogs answered by real clicks, menus, messages, sounds.
#include "DialogUser.h"
#include "PluginTest.h"

#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using testing::_;
using testing::Return;

namespace {

class User : public PluginTest {
protected:
    User() { ON_CALL(delegate, mainWindow()).WillByDefault(Return(window.get())); }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
};

QAbstractButton* buttonOf(QDialog& dialog, const QString& text)
{
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text)
            return button;
    }
    ADD_FAILURE() << "no button " << qPrintable(text);
    return nullptr;
}

DialogUser::Deed press(const char* text)
{
    return [text](QDialog& dialog) {
        if (QAbstractButton* button = buttonOf(dialog, QString::fromUtf8(text)))
            button->click();
        else
            dialog.reject();
    };
}

/// Notes the texts of a message box's buttons, then rejects it.
DialogUser::Deed lookAtButtons(QStringList& texts)
{
    return [&texts](QDialog& dialog) {
        for (QAbstractButton* button : dynamic_cast<QMessageBox&>(dialog).buttons())
            texts.append(button->text().remove(QLatin1Char('&')));
        texts.sort();
        dialog.reject();
    };
}

TEST_F(User, MessageBoxWithoutButtonTextsShowsOneOkButtonAndReturnsOneForIt)
{
    QStringList texts;
    DialogUser user({lookAtButtons(texts), press("OK")});
    run("vistrel.message_box('T', 'Q')");
    EXPECT_EQ(texts, QStringList{QStringLiteral("OK")});
    EXPECT_EQ(value("vistrel.message_box('T', 'Q')"), QStringLiteral("1"));
}

TEST_F(User, MessageBoxWithTwoTextsShowsBothAndReturnsTheirNumbers)
{
    QStringList texts;
    DialogUser user({lookAtButtons(texts), press("Yes"), press("No")});
    run("vistrel.message_box('T', 'Q', 'Yes', 'No')");
    EXPECT_EQ(texts, (QStringList{QStringLiteral("No"), QStringLiteral("Yes")}));
    EXPECT_EQ(value("[vistrel.message_box('T', 'Q', 'Yes', 'No') for i in range(2)]"),
              QStringLiteral("[1, 2]"));
}

TEST_F(User, MessageBoxWithAnEmptySecondTextShowsOkInThePlaceOfTheFirst)
{
    QStringList texts;
    DialogUser user({lookAtButtons(texts), press("OK"), press("Maybe")});
    run("vistrel.message_box('T', 'Q', 'Yes', '', 'Maybe')");
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Maybe"), QStringLiteral("OK")}));
    EXPECT_EQ(value("[vistrel.message_box('T', 'Q', 'Yes', '', 'Maybe') for i in range(2)]"),
              QStringLiteral("[1, 3]"));
}

TEST_F(User, MessageBoxWithOneTextAloneShowsOk)
{
    DialogUser user({press("OK")});
    EXPECT_EQ(value("vistrel.message_box('T', 'Q', 'Yes')"), QStringLiteral("1"));
}

TEST_F(User, MessageBoxWithThreeTextsReturnsThreeForTheThird)
{
    DialogUser user({press("c"), press("a")});
    EXPECT_EQ(value("[vistrel.message_box('T', 'Q', 'a', 'b', 'c') for i in range(2)]"),
              QStringLiteral("[3, 1]"));
}

TEST_F(User, MessageBoxClosedWithoutAButtonReturnsTheFirstPlaceWithoutOne)
{
    DialogUser user;
    EXPECT_EQ(value("vistrel.message_box('T', 'Q')"), QStringLiteral("2"));
    EXPECT_EQ(value("vistrel.message_box('T', 'Q', 'a', 'b')"), QStringLiteral("3"));
    EXPECT_EQ(value("vistrel.message_box('T', 'Q', 'a', 'b', 'c')"), QStringLiteral("0"));
    EXPECT_EQ(user.dialogsSeen, 3);
}

TEST_F(User, MessageBoxThatIsClosedByItsOneButtonsEscapeCountsAsThatButton)
{
    DialogUser user({[](QDialog& dialog) { dialog.close(); }});
    EXPECT_EQ(value("vistrel.message_box('T', 'Q')"), QStringLiteral("1"));
}

TEST_F(User, MessageBoxShowsTitleAndTextUnderTheMainWindowAndIsGoneAfterwards)
{
    QString title;
    QString text;
    const QWidget* parent = nullptr;
    bool isModal = false;
    Qt::TextFormat format = Qt::PlainText;
    DialogUser user({[&](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        title = box.windowTitle();
        text = box.text();
        parent = box.parentWidget();
        isModal = box.isModal();
        format = box.textFormat();
        box.reject();
    }});
    run("vistrel.message_box('Größe', 'µ <b>画像</b> 🎥')");
    EXPECT_EQ(title, QStringLiteral("Größe"));
    EXPECT_EQ(text, QStringLiteral("µ <b>画像</b> 🎥"));
    EXPECT_EQ(parent, window.get());
    EXPECT_TRUE(isModal);
    EXPECT_EQ(format, Qt::AutoText);
    EXPECT_TRUE(window->findChildren<QDialog*>().isEmpty());
}

TEST_F(User, DialogsNeedNoMainWindow)
{
    ON_CALL(delegate, mainWindow()).WillByDefault(Return(nullptr));
    DialogUser user({press("OK"), press("OK")});
    EXPECT_EQ(value("(vistrel.message_box('T', 'Q'), vistrel.ask_user_for_string('T', 'Q'))"),
              QStringLiteral("(1, '')"));
}

TEST_F(User, AMainWindowThatGoesWhileAMessageIsOpenTakesItAlong)
{
    DialogUser user({[this](QDialog&) { window.reset(); }});
    EXPECT_EQ(value("vistrel.message_box('T', 'Q', 'a', 'b', 'c')"), QStringLiteral("0"));
    EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
}

TEST_F(User, AMainWindowThatGoesWhileAQuestionIsOpenCancelsIt)
{
    DialogUser user({[this](QDialog& dialog) {
        dynamic_cast<QInputDialog&>(dialog).setTextValue(QStringLiteral("lost"));
        window.reset();
    }});
    EXPECT_EQ(value("repr(vistrel.ask_user_for_string('T', 'Q'))"), QStringLiteral("''"));
}

TEST_F(User, ARunThatIsAskedForWhileADialogIsOpenIsRefused)
{
    QString answer;
    DialogUser user({[&](QDialog& dialog) {
        answer = plugin->runScript(QStringLiteral("x = 1"), &environment, QString(), nullptr,
                                   nullptr, nullptr);
        dialog.reject();
    }});
    EXPECT_EQ(value("(vistrel.message_box('T', 'Q'), 'x' in globals())"),
              QStringLiteral("(2, False)"));
    EXPECT_EQ(answer,
              QStringLiteral("a script cannot be started from within the run of another one"));
}

TEST_F(User, AnInterruptThatCameBeforeADialogKeepsItShut)
{
    DialogUser user;
    EXPECT_EQ(error("import signal\n"
                    "signal.raise_signal(signal.SIGINT); vistrel.message_box('T', 'Q')"),
              QStringLiteral("KeyboardInterrupt"));
    EXPECT_EQ(user.dialogsSeen, 0);
}

TEST_F(User, AskUserForStringReturnsTheLine)
{
    QString title;
    QString label;
    QString before;
    const QWidget* parent = nullptr;
    DialogUser user({[&](QDialog& dialog) {
        auto* const line = dialog.findChild<QLineEdit*>();
        title = dialog.windowTitle();
        label = dialog.findChild<QLabel*>()->text();
        before = line->text();
        EXPECT_EQ(line->echoMode(), QLineEdit::Normal);
        parent = dialog.parentWidget();
        line->setText(QStringLiteral("Teil 5 µm"));
        buttonOf(dialog, QStringLiteral("OK"))->click();
    }});
    EXPECT_EQ(value("vistrel.ask_user_for_string('Name', 'Enter a name:')"),
              QStringLiteral("Teil 5 µm"));
    EXPECT_EQ(title, QStringLiteral("Name"));
    EXPECT_EQ(label, QStringLiteral("Enter a name:"));
    EXPECT_EQ(before, QString());
    EXPECT_EQ(parent, window.get());
}

TEST_F(User, AskUserForStringCancelledReturnsTheEmptyText)
{
    DialogUser user({[](QDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("typed"));
        buttonOf(dialog, QStringLiteral("Cancel"))->click();
    }});
    EXPECT_EQ(value("repr(vistrel.ask_user_for_string('Name', 'Enter a name:'))"),
              QStringLiteral("''"));
}

TEST_F(User, NotificationsGoToTheHost)
{
    EXPECT_CALL(delegate, showNotification(QStringLiteral("fertig: größer")));
    EXPECT_EQ(value("vistrel.show_notification('fertig: größer')"), QStringLiteral("None"));
}

TEST_F(User, TheErrorLogGetsTheTextAloneInQuotes)
{
    EXPECT_EQ(value("vistrel.print_to_error_log('say \"µ\"')"), QStringLiteral("None"));
    ASSERT_FALSE(log.isEmpty());
    EXPECT_EQ(log.last(), QStringLiteral("\"say \\\"µ\\\"\""));
}

TEST_F(User, TheErrorLogGetsItAsCriticalOfTheDefaultCategory)
{
    static QtMsgType type;
    static QByteArray category;
    run("pass");
    qInstallMessageHandler([](QtMsgType t, const QMessageLogContext& context, const QString&) {
        type = t;
        category = context.category;
    });
    run("vistrel.print_to_error_log('x')");
    EXPECT_EQ(type, QtCriticalMsg);
    EXPECT_EQ(category, "default");
}

TEST_F(User, TheWorkingDirectoryIsTheEnvironments)
{
    EXPECT_CALL(environment, workingDirectory()).WillOnce(Return(QStringLiteral("/data/größe")));
    EXPECT_EQ(value("vistrel.get_working_directory()"), QStringLiteral("/data/größe"));
}

TEST_F(User, SoundsAreResolvedAndPlayedByTheHost)
{
    EXPECT_CALL(environment, resolvePath(QStringLiteral("bell.wav")))
        .WillOnce(Return(QStringLiteral("/data/bell.wav")));
    EXPECT_CALL(delegate, playSound(QStringLiteral("/data/bell.wav")));
    EXPECT_EQ(value("vistrel.play_sound('bell.wav')"), QStringLiteral("None"));
}

class Menu : public User {
protected:
    Menu()
    {
        ON_CALL(delegate, menu(3)).WillByDefault(Return(&menu));
        ON_CALL(environment, addMenuItem)
            .WillByDefault([](QMenu* target, const QString& title, auto&, auto&) {
                target->addAction(title);
            });
    }

    QMenu menu;
};

TEST_F(Menu, ItemsGoIntoTheHostsThirdMenuWithAllTheirTexts)
{
    EXPECT_CALL(delegate, menu(3)).Times(2).WillRepeatedly(Return(&menu));
    EXPECT_CALL(environment, addMenuItem(&menu, QStringLiteral("Größe"), QStringLiteral("x.py"),
                                         QStringLiteral("more")));
    EXPECT_EQ(value("vistrel.add_menu_item('Größe', 'x.py', '', 'more')"), QStringLiteral("None"));
    EXPECT_CALL(environment,
                addMenuItem(&menu, QStringLiteral("B"), QStringLiteral("y.py"), QString()));
    EXPECT_EQ(value("vistrel.add_menu_item('B', 'y.py')"), QStringLiteral("None"));
}

TEST_F(Menu, TheScriptsPathIsHandedOnAsGiven)
{
    EXPECT_CALL(environment, resolvePath(_)).Times(0);
    EXPECT_CALL(environment, addMenuItem(_, _, QStringLiteral("../x.py"), _));
    run("vistrel.add_menu_item('X', '../x.py')");
}

TEST_F(Menu, TwoItemsForOneSubmenuMakeItOnce)
{
    EXPECT_EQ(run("vistrel.add_menu_item('Run X', 'x.py', 'Tools')\n"
                  "vistrel.add_menu_item('Run X', 'x.py', 'Tools')\n"),
              QString());
    ASSERT_EQ(menu.actions().size(), 1);
    const QMenu* tools = menu.actions().first()->menu();
    ASSERT_NE(tools, nullptr);
    EXPECT_EQ(tools->title(), QStringLiteral("Tools"));
    EXPECT_EQ(tools->actions().size(), 2);
}

TEST_F(Menu, SubmenusAreFoundAtEveryDepthAndByTheirExactTitle)
{
    QMenu* const outer = menu.addMenu(QStringLiteral("Outer"));
    QMenu* const inner = outer->addMenu(QStringLiteral("Tools"));
    QMenu* const later = menu.addMenu(QStringLiteral("Tools"));
    run("vistrel.add_menu_item('X', 'x.py', 'Tools')");
    EXPECT_EQ(inner->actions().size(), 1) << "the first in the order of children";
    EXPECT_TRUE(later->isEmpty());
    run("vistrel.add_menu_item('X', 'x.py', 'tools')");
    EXPECT_EQ(menu.actions().last()->menu()->title(), QStringLiteral("tools"));
}

TEST_F(Menu, AHostWithoutThatMenuGivesTheInterpretersOwnError)
{
    ON_CALL(delegate, menu(3)).WillByDefault(Return(nullptr));
    EXPECT_CALL(environment, addMenuItem).Times(0);
    expectSilentNull("vistrel.add_menu_item('X', 'x.py', 'Tools')");
}

} // namespace
