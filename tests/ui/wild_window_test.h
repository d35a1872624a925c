// Random mouse, keys, menus, buttons and lists on the real window: no fault, and a state that is in order.
#pragma once

#include "window_hands.h"

#include <QObject>

#include <random>
#include <string>

namespace zonterbrook::tests {

class QuickPlatform;

class WildWindowTest : public QObject, private WindowHands {
    Q_OBJECT

public:
    WildWindowTest();
    ~WildWindowTest() override;

private slots:
    void init();
    void cleanup() { CloseAll(); }

    void LeavesTheStateInOrder_data();
    void LeavesTheStateInOrder();

private:
    int Below(int Limit) { return static_cast<int>(Chance() % static_cast<unsigned>(Limit)); }
    bool Now(int OneIn) { return Below(OneIn) == 0; }

    void CloseAll();
    void AnswerWhatIsOpen();
    void Play(unsigned Seed, const QString& Variant, int Events);
    void ComeToFront();
    void DoSomething();
    void UseMouse();
    void UseKeys();
    void UseCommand();
    void UseButton();
    void UseList();
    void Scribble();
    QPoint SomePoint();
    int SomeCell();
    int SomeTarget(int Cell);
    std::string WindowComplaint();

    std::unique_ptr<QuickPlatform> World;
    std::mt19937 Chance;
    QTimer Answers;
    bool WithSearches = false; // searches that are cancelled, and the computer against itself
    int MovesSeen = 0;
};

} // namespace zonterbrook::tests
