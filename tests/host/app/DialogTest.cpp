// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Modal dialogs that nobody sees: answered, dismissed, never waited for.
#include "AppFixture.h"

#include "app/DialogAnswers.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

using namespace vistrel;

namespace {

QString tx(const char* text) { return QString::fromUtf8(text); }

/// A dialog that fights for its life.
class StubbornDialog : public QDialog {
public:
    void reject() override {}
    void done(int) override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

/// A dialog with a button of its own that is enabled some time after it was shown.
class LateDialog : public QDialog {
public:
    LateDialog()
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QSpinBox);
        layout->addWidget(capture);
        capture->setEnabled(false);
        QObject::connect(capture, &QPushButton::clicked, this, &QDialog::accept);
    }

    QPushButton* capture = new QPushButton(QStringLiteral("&Capture"));
};

class Dialogs : public HostTest {
protected:
    /// Shows a box with these buttons; the text of the one that was reported, empty for none.
    QString pressed(const QStringList& buttons)
    {
        QMessageBox box(app.mainWindow());
        box.setWindowTitle(tx("Title"));
        box.setText(tx("A <b>good</b><br>question"));
        for (const QString& text : buttons)
            box.addButton(text, QMessageBox::ActionRole);
        box.exec();
        return box.clickedButton() ? box.clickedButton()->text() : QString();
    }

    QString entered() { return QInputDialog::getText(app.mainWindow(), tx("Part"), tx("Number:")); }
};

} // namespace

TEST_F(Dialogs, PressTheButtonOfTheAnswersText)
{
    const DialogAnswers answers({tx("No"), tx("Yes")});
    EXPECT_EQ(pressed({tx("Yes"), tx("No")}), tx("No"));
    EXPECT_EQ(pressed({tx("Yes"), tx("No")}), tx("Yes"));
    EXPECT_TRUE(answers.left().isEmpty());
}

TEST_F(Dialogs, PressStandardButtons)
{
    const DialogAnswers answers({tx("OK"), tx("Cancel")});
    for (const auto expected : {QMessageBox::Ok, QMessageBox::Cancel}) {
        EXPECT_EQ(QMessageBox::question(app.mainWindow(), {}, tx("Sure?"),
                                        QMessageBox::Ok | QMessageBox::Cancel),
                  expected);
    }
}

TEST_F(Dialogs, DoNotMindMnemonicsInAnswers)
{
    const DialogAnswers answers({tx("Yes"), tx("&Yes"), tx("Cut & paste"), tx("R&D")});
    EXPECT_EQ(pressed({tx("&Yes"), tx("&No")}), tx("&Yes"));
    EXPECT_EQ(pressed({tx("&Yes"), tx("&No")}), tx("&Yes"));
    EXPECT_EQ(pressed({tx("&Cut && paste")}), tx("&Cut && paste"));
    EXPECT_EQ(pressed({tx("R&D"), tx("Sales")}), tx("R&D"));
}

TEST_F(Dialogs, PreferTheButtonOfTheSameCase)
{
    const DialogAnswers answers({tx("stop"), tx("STOP"), tx("sToP")});
    EXPECT_EQ(pressed({tx("Stop"), tx("stop")}), tx("stop"));
    EXPECT_EQ(pressed({tx("Stop"), tx("stop")}), tx("Stop"));
    EXPECT_EQ(pressed({tx("Stop"), tx("Go")}), tx("Stop"));
}

TEST_F(Dialogs, TakeTheAnswerAsTheLineToEnter)
{
    const DialogAnswers answers({tx("größe 4711"), tx("Cancel"), tx("")});
    EXPECT_EQ(entered(), tx("größe 4711"));
    EXPECT_EQ(entered(), tx("Cancel"));
    EXPECT_EQ(entered(), QString());
}

TEST_F(Dialogs, TakeTheAnswerAsANumber)
{
    const DialogAnswers answers({tx("42"), tx("2.5")});
    bool accepted = false;
    EXPECT_EQ(QInputDialog::getInt(app.mainWindow(), {}, {}, 0, 0, 100, 1, &accepted), 42);
    EXPECT_TRUE(accepted);
    EXPECT_EQ(QInputDialog::getDouble(app.mainWindow(), {}, {}, 0, 0, 100, 1, &accepted), 2.5);
    EXPECT_TRUE(accepted);
}

TEST_F(Dialogs, TakeTheAnswerAsAFilesName)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(tx("new.txt"));
    const DialogAnswers answers({path});
    EXPECT_EQ(QFileDialog::getSaveFileName(app.mainWindow(), tx("Save")), path);
}

TEST_F(Dialogs, AreDismissedWithoutAnAnswer)
{
    const LogLines log;
    const DialogAnswers answers({});
    EXPECT_EQ(entered(), QString());
    EXPECT_EQ(pressed({tx("Yes"), tx("No")}), QString()); // no button to escape by
    EXPECT_EQ(QFileDialog::getOpenFileName(app.mainWindow(), tx("Open")), QString());
    EXPECT_EQ(
        log.errors(),
        QStringList({tx("Dialog \"Part\", \"Number:\": dismissed, no answer is left"),
                     tx("Dialog \"Title\", \"A good question\": dismissed, no answer is left"),
                     tx("Dialog \"Open\": dismissed, no answer is left")}));
}

TEST_F(Dialogs, EscapeByTheirOnlyButtonWhenDismissed)
{
    const LogLines log;
    const DialogAnswers answers({});
    QMessageBox box(app.mainWindow());
    box.exec();
    EXPECT_EQ(box.standardButton(box.clickedButton()), QMessageBox::Ok);
    EXPECT_EQ(log.errors().size(), 1);
}

TEST_F(Dialogs, AreDismissedWhenTheAnswerIsNoButton)
{
    const LogLines log;
    const DialogAnswers answers({tx("Maybe"), tx("No")});
    EXPECT_EQ(pressed({tx("&Yes"), tx("No")}), QString());
    EXPECT_EQ(log.errors(),
              QStringList(tx("Dialog \"Title\", \"A good question\": dismissed, \"Maybe\" is no "
                             "button that can be pressed; there are \"Yes\", \"No\"")));
    EXPECT_EQ(answers.left(), QStringList(tx("No"))) << "an answer is for one dialog";
    EXPECT_EQ(pressed({tx("Yes"), tx("No")}), tx("No"));
}

TEST_F(Dialogs, SayWhatWasAnswered)
{
    QStringList lines;
    {
        static QStringList* taken = nullptr;
        taken = &lines;
        const auto previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& line) { *taken << line; });
        const DialogAnswers answers({tx("Yes")});
        pressed({tx("Yes"), tx("No")});
        qInstallMessageHandler(previous);
    }
    EXPECT_TRUE(lines.contains(tx("Dialog \"Title\", \"A good question\": answered \"Yes\"")));
}

TEST_F(Dialogs, SayWhichAnswersNobodyAskedFor)
{
    const LogLines log;
    DialogAnswers({tx("Yes"), tx("4711")});
    EXPECT_EQ(log.errors(), QStringList(tx("No dialog asked for the answers \"Yes\", \"4711\"")));
}

TEST_F(Dialogs, ThatRefuseToCloseHoldNothingUp)
{
    const LogLines log;
    const DialogAnswers answers({});
    StubbornDialog dialog;
    dialog.exec();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Dialogs, OfAnyKindAreDismissed)
{
    const LogLines log;
    const DialogAnswers answers({});
    QWidget window;
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    EXPECT_TRUE(handleEventsUntil([&] { return !window.isVisible(); }));
    QDialog plain;
    EXPECT_EQ(plain.exec(), QDialog::Rejected);
}

TEST_F(Dialogs, ThatAreNotModalStay)
{
    const DialogAnswers answers({});
    QDialog dialog;
    dialog.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Dialogs, WithinDialogsGetTheirOwnAnswers)
{
    const DialogAnswers answers({tx("More"), tx("inner"), tx("Done")});
    QString inner;
    QDialog dialog;
    auto* buttons = new QDialogButtonBox(&dialog);
    QObject::connect(buttons->addButton(tx("More"), QDialogButtonBox::ActionRole),
                     &QPushButton::clicked, &dialog, [&] { inner = entered(); });
    QObject::connect(buttons->addButton(tx("Done"), QDialogButtonBox::AcceptRole),
                     &QPushButton::clicked, &dialog, &QDialog::accept);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(inner, tx("inner"));
}

TEST_F(Dialogs, WaitForAButtonThatIsDisabledAtFirst)
{
    const DialogAnswers answers({tx("capture")});
    LateDialog dialog;
    QTimer::singleShot(60, &dialog, [&] { dialog.capture->setEnabled(true); });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

TEST_F(Dialogs, WithoutTheAnswersButtonTakeItAsTheirLine)
{
    const DialogAnswers answers({tx("typed")});
    QDialog dialog;
    auto* line = new QLineEdit(&dialog);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(line->text(), tx("typed"));
}

TEST_F(Dialogs, KeepTheirNumbersWhenAnAnswerIsNoButton)
{
    const LogLines log;
    const DialogAnswers answers({tx("7")});
    LateDialog dialog;
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(dialog.findChild<QSpinBox*>()->value(), 0);
}

TEST_F(Dialogs, ThatAreShownAgainGetTheNextAnswer)
{
    const DialogAnswers answers({tx("a"), tx("b"), tx("c")});
    QInputDialog dialog;
    QStringList lines;
    for (int i = 0; i < 3; ++i) {
        dialog.exec();
        lines << dialog.textValue();
    }
    EXPECT_EQ(lines, QStringList({tx("a"), tx("b"), tx("c")}));
}
