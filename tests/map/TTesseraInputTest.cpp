// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>

#include <memory>
#include <stdexcept>

namespace tessera::test {
namespace {

/// An input event as the platform sends it; answers whether it was accepted.
using Input = std::function<bool(QWidget &)>;

Input Mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {}) {
  return [=](QWidget &target) {
    QMouseEvent event(type, QPointF(30, 40), QPointF(130, 140), button, held, modifiers);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
  };
}
Input Key(QEvent::Type type, int key, const QString &text = {}, bool repeats = false) {
  return [=](QWidget &target) {
    QKeyEvent event(type, key, Qt::ShiftModifier, text, repeats);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
  };
}
Input Wheel(const QPoint &delta, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
  return [=](QWidget &target) {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), delta, Qt::NoButton, Qt::NoModifier, phase, false);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
  };
}
Input Commit(const QString &text) {
  return [=](QWidget &target) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
  };
}

const Input LeftPress = Mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
const Input LeftRelease = Mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
const Input SecondPress = Mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
const Input WheelUp = Wheel({0, 120});

/// Has every event of input call `handler` with its name and parameters as text.
void Listen(TTessera &map, const std::function<void(const QString &)> &handler) {
  const auto mouse = [handler](const char *name) {
    return [=](TTessera *, int button, TShiftState shift, int x, int y) {
      handler(QString::asprintf("%s %d %d at %d,%d", name, button, shift.toInt(), x, y));
    };
  };
  const auto key = [handler](const char *name) {
    return [=](TTessera *, int code, TShiftState shift) {
      handler(QString::asprintf("%s %d %d", name, code, shift.toInt()));
    };
  };
  QObject::connect(&map, &TTessera::OnMouseDown, &map, mouse("down"));
  QObject::connect(&map, &TTessera::OnMouseUp, &map, mouse("up"));
  QObject::connect(
      &map, &TTessera::OnMouseMove, &map,
      [move = mouse("move")](TTessera *sender, TShiftState shift, int x, int y) { move(sender, 0, shift, x, y); });
  QObject::connect(&map, &TTessera::OnDblClick, &map, [=] { handler(QStringLiteral("double")); });
  QObject::connect(&map, &TTessera::OnKeyDown, &map, key("key"));
  QObject::connect(&map, &TTessera::OnKeyUp, &map, key("key up"));
  QObject::connect(&map, &TTessera::OnKeyPress, &map,
                   [=](TTessera *, QChar typed) { handler(QStringLiteral("typed %1").arg(typed.unicode())); });
  QObject::connect(&map, &TTessera::OnZoom, &map, [=] { handler(QStringLiteral("zoom")); });
}

class TTesseraInputTest : public MapFixture {
 protected:
  QStringList EventsOf(std::initializer_list<Input> inputs) {
    events.clear();
    if (!m_isListening) Listen(map, [this](const QString &text) { events << text; });
    m_isListening = true;
    for (const Input &input : inputs) input(map);
    return events;
  }
  static QString Line(const char *text) { return QString::fromLatin1(text); }

  QStringList events;

 private:
  bool m_isListening = false;
};

TEST_F(TTesseraInputTest, TellsOfTheMouseWithTheKeysAndButtonsHeld) {
  static_assert(ssShift == 1 && ssAlt == 2 && ssCtrl == 4 && ssLeft == 8 && ssRight == 16 && ssMiddle == 32 &&
                ssDouble == 64);
  const Qt::KeyboardModifiers all = Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier;
  EXPECT_EQ(EventsOf({Mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton),
                      Mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, Qt::ShiftModifier),
                      Mouse(QEvent::MouseMove, Qt::NoButton, Qt::RightButton | Qt::MiddleButton, Qt::AltModifier),
                      Mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton, all)}),
            (QStringList{Line("move 0 0 at 30,40"), Line("down 2 17 at 30,40"), Line("move 0 50 at 30,40"),
                         Line("up 2 15 at 30,40")}));
}

TEST_F(TTesseraInputTest, SendsADoubleClickBeforeItsSecondPress) {
  EXPECT_EQ(EventsOf({LeftPress, LeftRelease, SecondPress, LeftRelease}),
            (QStringList{Line("down 1 8 at 30,40"), Line("up 1 0 at 30,40"), Line("double"), Line("down 1 72 at 30,40"),
                         Line("up 1 0 at 30,40")}));
}

TEST_F(TTesseraInputTest, TakesTheFocusAfterAPressWasTold) {
  QLineEdit other(&map);
  for (const Input &press : {LeftPress, SecondPress}) {
    other.setFocus();
    const QWidget *focusInHandler = nullptr;
    const auto connection =
        QObject::connect(&map, &TTessera::OnMouseDown, &map, [&] { focusInHandler = map.focusWidget(); });
    press(map);
    QObject::disconnect(connection);
    EXPECT_EQ(focusInHandler, &other);
    EXPECT_EQ(map.focusWidget(), &map);
  }
}

TEST_F(TTesseraInputTest, SendsKeysAndThenWhatTheyType) {
  const QLineEdit next(&map);  // where Tab would go
  map.show();
  EXPECT_TRUE(map.testAttribute(Qt::WA_InputMethodEnabled));
  EXPECT_EQ(
      EventsOf({Key(QEvent::KeyPress, Qt::Key_Tab, Line("\t")), Key(QEvent::KeyPress, Qt::Key_Left),
                Key(QEvent::KeyPress, Qt::Key_A, Line("a"), true), Key(QEvent::KeyRelease, Qt::Key_A, {}, true),
                Key(QEvent::KeyRelease, Qt::Key_A), Commit(QString::fromUcs4(U"\u00e9\U0001F600"))}),
      (QStringList{Line("key 16777217 1"), Line("typed 9"), Line("key 16777234 1"), Line("key 65 1"), Line("typed 97"),
                   Line("key up 65 1"), Line("typed 233"), Line("typed 55357"), Line("typed 56832")}));
  QObject::connect(&map, &TTessera::OnKeyDown, &map, [](TTessera *, int &key) { key = 0; });
  EXPECT_EQ(EventsOf({Key(QEvent::KeyPress, Qt::Key_A, Line("a"))}), QStringList{Line("key 65 1")})
      << "a key that was taken types nothing";
}

TEST_F(TTesseraInputTest, ClaimsPlainKeysBeforeShortcuts) {
  for (const auto &[modifiers, isClaimed] : {std::pair{Qt::KeyboardModifiers(), true},
                                             {Qt::ShiftModifier, true},
                                             {Qt::KeypadModifier, true},
                                             {Qt::ControlModifier, false},
                                             {Qt::AltModifier | Qt::ShiftModifier, false}}) {
    QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_Left, modifiers);
    event.ignore();
    QApplication::sendEvent(&map, &event);
    EXPECT_EQ(event.isAccepted(), isClaimed) << modifiers;
  }
}

TEST_F(TTesseraInputTest, ZoomsAStepForEachMessageThatMovesUpOrDown) {
  struct WheelCase {
    QPoint delta;
    Qt::ScrollPhase phase;
    double zoom;
  };
  for (const auto &[delta, phase, zoom] :
       {WheelCase{{0, 1}, Qt::NoScrollPhase, 2}, WheelCase{{0, 1200}, Qt::ScrollUpdate, 2},
        WheelCase{{0, -1}, Qt::ScrollMomentum, 0.5}, WheelCase{{70, -120}, Qt::NoScrollPhase, 0.5},
        WheelCase{{120, 0}, Qt::NoScrollPhase, 1}, WheelCase{{0, 0}, Qt::ScrollBegin, 1},
        WheelCase{{0, 0}, Qt::ScrollEnd, 1}}) {
    map.SetZoom(1);
    EXPECT_EQ(Wheel(delta, phase)(map), zoom != 1) << "the rest is left to others";
    EXPECT_EQ(map.GetZoom(), zoom) << delta.x() << ' ' << delta.y();
  }
  map.SetWheelMouse(false);
  WheelUp(map);
  EXPECT_EQ(map.GetZoom(), 1);
}

const Input EveryInput[] = {LeftPress,
                            LeftRelease,
                            Mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton),
                            SecondPress,
                            Key(QEvent::KeyPress, Qt::Key_A, QStringLiteral("aa")),
                            Key(QEvent::KeyPress, Qt::Key_Left),
                            Key(QEvent::KeyRelease, Qt::Key_A),
                            Commit(QStringLiteral("aa")),
                            WheelUp};

TEST_F(TTesseraInputTest, TurnsWhateverAHandlerThrowsIntoAMessage) {
  bool throwsException = false;
  int thrown = 0;
  Listen(map, [&](const QString & /*event*/) {
    ++thrown;
    if (throwsException) throw std::runtime_error("no hand");
    throw 42;
  });
  for (const bool isException : {false, true}) {
    throwsException = isException;
    for (const Input &input : EveryInput) EXPECT_NO_THROW(input(map));
    EXPECT_EQ(messages.size(), thrown);
    EXPECT_EQ(messages.last() == QLatin1String("no hand"), isException);
  }
  EXPECT_FALSE(map.GetInUpdate()) << "the wheel's batch has ended";
}

TEST_F(TTesseraInputTest, LetsAHandlerTakeAwayTheDataOrTheMap) {
  for (const Input &input : EveryInput) {
    AddSquare(AddLayer(), 20, 20, 40, clRed)->Select();
    Shown();
    Listen(map, [this](const QString & /*event*/) { map.GetLayers()->Clear(); });
    input(map);
    Shown();
    EXPECT_EQ(map.GetLayers()->GetCount(), 0);

    const QPointer<TTessera> other = new TTessera;
    int told = 0;
    Listen(*other, [&](const QString & /*event*/) {
      ++told;
      std::unique_ptr<TTessera>(other.data()).reset();
    });
    input(*other);
    EXPECT_TRUE(other.isNull());
    EXPECT_EQ(told, 1) << "nothing more comes from a map that is gone";
  }
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(TTesseraInputTest, GetsTheDoubleClicksAndKeysOfAWindow) {
  map.show();
  QTest::mouseDClick(map.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 40));
  EXPECT_TRUE(EventsOf({}).isEmpty());
  QTest::mouseDClick(map.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 40));
  EXPECT_EQ(events.filter(Line("double")).size(), 1);
  EXPECT_EQ(events.filter(Line("down")).size(), 2);
  QTest::keyClick(&map, Qt::Key_Tab);
  EXPECT_TRUE(events.contains(Line("key 16777217 0")));
}

}  // namespace
}  // namespace tessera::test
