// The dialogs in the window: variants, options, rules, manual; what they say to those who can't see them.
#include "rules/position.h"
#include "ui/manual_window.h"
#include "window_hands.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>

#include <random>

namespace zonterbrook::tests {
namespace {

class WindowDialogs : public WindowFixture {
protected:
    static QDialog* Dialog(const char* Name) {
        auto* Open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        return Open != nullptr && Open->objectName() == Name ? Open : nullptr;
    }
    /// Runs a command whose dialog is worked on by `Do`, which has to close it.
    template <typename Act>
    void Within(CommandId Id, const char* Name, Act Do) {
        const Soon Work([Name] { return Dialog(Name) != nullptr; },
                        [Name, Do] {
                            const QPointer<QDialog> Open = Dialog(Name);
                            Do(*Open);
                            if (Open != nullptr && Open->isVisible()) {
                                ADD_FAILURE() << Name << " stands still";
                                Open->reject();
                            }
                        });
        Run(Id);
    }
    static void Click(QDialog& Open, const char* Name) {
        auto* Button = Open.findChild<QAbstractButton*>(Name);
        ASSERT_NE(nullptr, Button) << Name;
        Button->click();
    }
    static QString NameOf(QWidget* Control) {
        return QAccessible::queryAccessibleInterface(Control)->text(QAccessible::Name);
    }
};

TEST_F(WindowDialogs, AVariantIsFoundByWordsAndPlayed) {
    Within(CommandId::NewVariant, "dlgVariants", [](QDialog& Open) {
        auto* Words = Open.findChild<QLineEdit*>("Filter");
        auto* List = Open.findChild<QListWidget*>("Variants");
        QTest::keyClicks(Words, "I want to play Frisian draughts");
        EXPECT_GE(5, List->count());
        while (List->currentItem() == nullptr || List->currentItem()->text() != "Frisian Draughts") {
            const int Row = List->currentRow();
            QTest::keyClick(Words, Qt::Key_Down);
            ASSERT_NE(Row, List->currentRow());
        }
        EXPECT_EQ("Frisian Draughts", Open.findChild<QComboBox*>("Combo1")->currentText());
        EXPECT_EQ("Frisian Draughts", Open.findChild<QLabel*>("Title")->text());
        EXPECT_TRUE(Open.findChild<QTextBrowser*>("Help")->toPlainText().contains("Frisian"));
        QTest::keyClick(&Open, Qt::Key_Return);
    });
    EXPECT_TRUE(Window->windowTitle().contains("Frisian Draughts"));
    Type("d4e5");
    EXPECT_EQ(2, Game().Record.Count);
}

TEST_F(WindowDialogs, AnIllegalEntryIsMarkedAndTheDialogStays) {
    Within(CommandId::NewVariant, "dlgVariants", [](QDialog& Open) {
        auto* Square = Open.findChild<QLineEdit*>("Text1(0)");
        Square->selectAll();
        QTest::keyClicks(Square, "z9");
        {
            const NextBox Said("Error: Illegal entry!", QMessageBox::Ok, QMessageBox::Warning);
            Click(Open, "OKButton");
        }
        EXPECT_TRUE(Open.isVisible());
        EXPECT_EQ(QColor(Qt::black), Square->palette().color(QPalette::Base));
        Square->selectAll();
        QTest::keyClicks(Square, "b0");
        Open.findChild<QCheckBox*>("Check1")->click();
        EXPECT_FALSE(Open.findChild<QCheckBox*>("Check7")->isEnabled());
        EXPECT_EQ("International Checkers (M)", Open.findChild<QLabel*>("Title")->text());
        Open.findChild<QLineEdit*>("Text2(4)")->clear();
        QTest::keyClicks(Open.findChild<QLineEdit*>("Text2(4)"), " ");
        QTest::keyClick(Open.findChild<QLineEdit*>("Text2(4)"), Qt::Key_Backspace);
        EXPECT_LT(0, Open.findChild<QListWidget*>("Warnings")->count()) << "men that never capture";
        Click(Open, "OKButton");
    });
    EXPECT_TRUE(Window->windowTitle().contains("(M)"));
}

// Whoever hears a dialog is told what each control is, and what its rule does.
TEST_F(WindowDialogs, EveryControlHasANameAndSaysWhatItDoes) {
    const auto ExpectTold = [](QDialog& Open, bool Explained) {
        for (auto* Control : Open.findChildren<QWidget*>()) {
            const bool Asks =
                qobject_cast<QAbstractButton*>(Control) != nullptr || qobject_cast<QSlider*>(Control) != nullptr ||
                qobject_cast<QComboBox*>(Control) != nullptr ||
                (qobject_cast<QLineEdit*>(Control) != nullptr && !Control->objectName().startsWith("qt_"));
            if (Asks && Control->objectName().size() > 1 && !Control->objectName().startsWith("qt_")) {
                EXPECT_NE("", NameOf(Control)) << qPrintable(Control->objectName());
                const bool Ticks = qobject_cast<QCheckBox*>(Control) != nullptr;
                EXPECT_TRUE(!Explained || !Ticks || !Control->accessibleDescription().isEmpty())
                    << qPrintable(Control->objectName());
            }
        }
        Open.reject();
    };
    Within(CommandId::NewVariant, "dlgVariants", [&](QDialog& Open) { ExpectTold(Open, true); });
    Within(CommandId::Options, "frmOptions", [&](QDialog& Open) { ExpectTold(Open, false); });
}

TEST_F(WindowDialogs, OptionsKeepOneLimitAndGoRoundTheTabs) {
    Within(CommandId::Options, "frmOptions", [](QDialog& Open) {
        auto* Tabs = Open.findChild<QTabWidget*>("tbsOptions");
        for (int Tab = 1; Tab <= 4; ++Tab) {
            QTest::keyClick(&Open, Qt::Key_Tab, Qt::ControlModifier);
            EXPECT_EQ(Tab % 4, Tabs->currentIndex());
        }
        auto* ByDepth = Open.findChild<QCheckBox*>("Check1");
        auto* ByTime = Open.findChild<QCheckBox*>("Check2");
        for (QCheckBox* Each : {ByDepth, ByTime, ByTime, ByDepth}) {
            Each->click();
            EXPECT_NE(ByDepth->isChecked(), ByTime->isChecked());
            EXPECT_TRUE(Each->isChecked()) << "the last one is ticked back";
            EXPECT_EQ(ByDepth->isChecked(), Open.findChild<QSlider*>("Slider4")->isEnabled());
            EXPECT_EQ(ByTime->isChecked(), Open.findChild<QSlider*>("Slider1")->isEnabled());
        }
        Open.findChild<QSlider*>("Slider4")->setValue(3);
        Open.findChild<QSlider*>("Slider2")->setValue(10);
        Open.findChild<QRadioButton*>("Option3")->click();
        Open.findChild<QCheckBox*>("Check4")->click();
        EXPECT_FALSE(Open.findChild<QRadioButton*>("Option3")->isEnabled());
        Open.findChild<QCheckBox*>("Check9")->click();
        EXPECT_TRUE(Open.findChild<QCheckBox*>("Check14")->isEnabled());
        EXPECT_FALSE(Open.findChild<QCheckBox*>("Check15")->isEnabled());
        auto* Skin = Open.findChild<QComboBox*>("Combo1");
        Skin->setCurrentText("Midnight");
        emit Skin->activated(Skin->currentIndex());
        Click(Open, "cmdOK");
    });
    EXPECT_EQ("Strength:10   Depth:3 ply", Game().StrengthLine.Text);
    EXPECT_EQ(3, Game().MoveLimitChoice);
    EXPECT_EQ(0, Game().ChessDrawRules);
    EXPECT_EQ(4, Game().SizeClass);
    EXPECT_GT(90, QColor(Seen().pixel(Middle("e5"))).lightness()) << "the board is dark now";
}

TEST_F(WindowDialogs, TheManualIsSearchedAndTheRulesAreRead) {
    QString Opened;
    ui::ManualWindow Manual(nullptr, ZONTERBROOK_SOURCE_DIR "/docs", [&](const QString& Target) { Opened = Target; });
    auto* Page = Manual.findChild<QTextBrowser*>("Page");
    EXPECT_LT(5, Manual.findChild<QListWidget*>("Headings")->count());
    QTest::keyClicks(Manual.findChild<QLineEdit*>("Find"), "double-click");
    EXPECT_EQ("double-click", Page->textCursor().selectedText().toLower());
    emit Page->anchorClicked(QUrl("variant-files.md#help"));
    EXPECT_EQ("Help", Page->textCursor().block().text());
    emit Page->anchorClicked(QUrl("https://example.invalid/"));
    EXPECT_EQ("https://example.invalid/", Opened);
    Within(CommandId::Contents, "frmManual", [](QDialog& Open) { Open.reject(); });
    Game().HelpLink = "a.html";
    Within(CommandId::Rules, "frmRules", [](QDialog& Open) {
        EXPECT_TRUE(
            Open.findChild<QTextBrowser*>("Label2")->toPlainText().startsWith("Rules for International Checkers"));
        EXPECT_EQ("a.html", Open.findChild<QLabel*>("Label1")->text());
        Click(Open, "Command1");
    });
    Within(CommandId::About, "frmAbout", [](QDialog& Open) { Click(Open, "cmdOK"); });
}

// Somebody who clicks on everything and types anything harms nothing, and what is left can be played.
TEST_F(WindowDialogs, WildClicksLeaveAGameThatCanBePlayed) {
    std::mt19937 Chance(7);
    const auto Below = [&](std::size_t Count) { return static_cast<int>(Chance() % Count); };
    QTimer Boxes;
    QObject::connect(&Boxes, &QTimer::timeout, [] {
        if (auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            Box->reject();
        }
    });
    Boxes.start(1);
    for (int Round = 0; Round < 4; ++Round) {
        const bool Variants = Round % 2 == 0;
        Within(Variants ? CommandId::NewVariant : CommandId::Options, Variants ? "dlgVariants" : "frmOptions",
               [&](QDialog& Open) {
                   for (int Act = 0; Act < 120; ++Act) {
                       const auto Buttons = Open.findChildren<QAbstractButton*>();
                       QAbstractButton* Button = Buttons.at(Below(static_cast<std::size_t>(Buttons.size())));
                       const QStringList Leaving = {
                           "OKButton",        "CancelButton",  "cmdOK",          "cmdCancel",         "TryOut",
                           "SaveUserVariant", "DarkHighlight", "LightHighlight", "DeleteUserVariant", "Option2"};
                       if (!Leaving.contains(Button->objectName())) {
                           Button->click();
                       }
                       const auto Entries = Open.findChildren<QLineEdit*>();
                       QLineEdit* Entry = Entries.at(Below(static_cast<std::size_t>(Entries.size())));
                       const char* Typed[] = {"b0", "7", "NW;NE", "x", "", "E"};
                       Entry->selectAll();
                       QTest::keyClicks(Entry, Typed[Below(std::size(Typed))]);
                   }
                   Open.reject();
               });
        EXPECT_EQ("", rules::CheckPosition(Game()));
        EXPECT_FALSE(Window->HasEnded());
    }
}

} // namespace
} // namespace zonterbrook::tests
