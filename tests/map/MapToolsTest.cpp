// SPDX-License-Identifier: MIT
// Tools on a map: what they are told, and in which order they take turns.
#include "../support/MapInput.h"
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/map/TMapToolsManager.h>

#include <QLineEdit>

#include <memory>

namespace tessera::test {
namespace {

/// Writes down what it is told.
class ToolDouble : public TCustomMapTool {
 public:
  ToolDouble(QStringList &log, const char *name) : m_log(log), m_name(QString::fromLatin1(name)) {
    connect(this, &TCustomMapTool::OnToolStateChanged, this, [this] { Log(GetActive() ? "on" : "off"); });
  }

  void DblClick() override { Log("double"); }
  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override {
    Log(QString::asprintf("down %d %d at %d,%d", button, shift.toInt(), x, y));
  }
  void MouseMove(TShiftState shift, int x, int y) override {
    Log(QString::asprintf("move %d at %d,%d", shift.toInt(), x, y));
  }
  void MouseUp(Qt::MouseButton button, TShiftState shift, int x, int y) override {
    Log(QString::asprintf("up %d %d at %d,%d", button, shift.toInt(), x, y));
  }
  void KeyDown(int &key, TShiftState /*shift*/) override {
    Log(QStringLiteral("key %1").arg(key));
    if (m_keyFor != 0) key = m_keyFor - 1;
  }
  void KeyUp(int &key, TShiftState /*shift*/) override {
    Log(QStringLiteral("key up %1").arg(key));
    ++key;
  }
  void KeyPress(QChar &key) override {
    Log(QStringLiteral("typed ") + key);
    key = key.toUpper();
  }
  void Preedit(const QString &text, int cursor) override {
    Log(QStringLiteral("composing %1 %2").arg(text).arg(cursor));
  }
  void Init() override {
    Log("init");
    TCustomMapTool::Init();
  }
  void Done() override {
    Log("done");
    TCustomMapTool::Done();
  }
  /// Has the tool turn every key into `key`; 0 takes it.
  void TurnKeysInto(int key) { m_keyFor = key + 1; }

 private:
  void Log(const QString &what) { m_log << m_name + QLatin1Char(' ') + what; }
  void Log(const char *what) { Log(QString::fromLatin1(what)); }

  QStringList &m_log;
  QString m_name;
  int m_keyFor = 0;
};

class MapToolsTest : public MapFixture {
 protected:
  MapToolsTest() {
    one.SetTessera(&map);
    two.SetTessera(&map);
  }
  QStringList Log() { return std::exchange(log, {}); }
  static QStringList Lines(std::initializer_list<const char *> lines) {
    QStringList list;
    for (const char *line : lines) list << QString::fromLatin1(line);
    return list;
  }

  QStringList log;
  ToolDouble one{log, "one"};
  ToolDouble two{log, "two"};
  MapInput input{map};
};

TEST_F(MapToolsTest, TakesTurnsInAFixedOrder) {
  QObject::connect(&map, &TTessera::OnMapToolChanged, &map, [this] { log << QStringLiteral("map"); });
  one.SetCursor(TCustomMapTool::crCross);
  one.SetActive(true);
  EXPECT_EQ(Log(), Lines({"one on", "map", "one init"}));
  EXPECT_EQ(map.cursor().shape(), Qt::CrossCursor);
  two.SetActive(true);
  EXPECT_EQ(Log(), Lines({"two on", "map", "one off", "map", "one done", "two init"}));
  EXPECT_EQ(map.cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(map.GetMapToolsManager()->GetActiveMapToolIndex(), 1);
  EXPECT_EQ(map.GetMapToolsManager()->GetActiveMapTool(), &two);
  two.SetActive(true);
  EXPECT_TRUE(Log().isEmpty());
  two.SetActive(false);
  EXPECT_EQ(Log(), Lines({"two off", "map", "two done"}));
  EXPECT_EQ(map.GetMapToolsManager()->GetActiveMapToolIndex(), -1);
  EXPECT_EQ(map.GetMapToolsManager()->GetActiveMapTool(), nullptr);
}

TEST_F(MapToolsTest, TakesEveryStepOfATurnWhateverHandlersDo) {
  one.SetActive(true);
  const auto throws = QObject::connect(&map, &TTessera::OnMapToolChanged, &map, [] { throw 7; });
  Log();
  EXPECT_THROW(two.SetActive(true), int);
  EXPECT_EQ(Log(), Lines({"two on", "one off", "one done", "two init"}));
  QObject::disconnect(throws);
  const auto back = QObject::connect(&two, &TCustomMapTool::OnToolStateChanged, &map, [this] { two.SetActive(false); });
  two.SetActive(false);
  Log();
  two.SetActive(true);
  EXPECT_FALSE(Log().contains(QStringLiteral("two init"))) << "a handler has turned it off again";
  QObject::disconnect(back);
  auto gone = std::make_unique<ToolDouble>(log, "gone");
  gone->SetTessera(&map);
  QObject::connect(&map, &TTessera::OnMapToolChanged, &map, [&gone] { gone.reset(); });
  gone->SetActive(true);
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(map.GetMapToolsManager()->GetCount(), 2);
}

TEST_F(MapToolsTest, GetsTheInputAfterTheProgramAndKeysBeforeIt) {
  QObject::connect(&map, &TTessera::OnMouseDown, &map, [this] { log << QStringLiteral("program down"); });
  QObject::connect(&map, &TTessera::OnDblClick, &map, [this] { log << QStringLiteral("program double"); });
  QObject::connect(&map, &TTessera::OnKeyDown, &map,
                   [this](TTessera *, int key) { log << QStringLiteral("program key %1").arg(key); });
  QObject::connect(&map, &TTessera::OnKeyUp, &map,
                   [this](TTessera *, int key) { log << QStringLiteral("program key up %1").arg(key); });
  QObject::connect(&map, &TTessera::OnKeyPress, &map,
                   [this](TTessera *, QChar key) { log << QStringLiteral("program typed ") + key; });
  input.Click({5, 6});
  input.Type(QStringLiteral("a"));
  Log();
  one.SetActive(true);
  Log();
  input.Press({5, 6}, Qt::ShiftModifier);
  input.MoveTo({7, 8});
  input.Release({7, 8});
  EXPECT_EQ(Log(), Lines({"program down", "one down 1 9 at 5,6", "one move 8 at 7,8", "one up 1 0 at 7,8"}));
  input.DoubleClick({5, 6});
  EXPECT_EQ(Log(), Lines({"program down", "one down 1 8 at 5,6", "one up 1 0 at 5,6", "program double", "one double",
                          "program down", "one down 1 72 at 5,6", "one up 1 0 at 5,6"}));
  input.DoubleClick({5, 6}, Qt::RightButton);
  EXPECT_FALSE(Log().contains(QStringLiteral("one double"))) << "a double click is the left button's";
  input.Type(QStringLiteral("a"));
  EXPECT_EQ(Log(), Lines({"one key 65", "program key 65", "one typed a", "program typed A", "one key up 65",
                          "program key up 66"}));
  input.Compose(QStringLiteral("xyz"), QStringLiteral("b"));
  EXPECT_EQ(Log(), Lines({"one typed b", "program typed B", "one composing xyz 3"}));
  one.TurnKeysInto(66);
  input.Key(Qt::Key_Left);
  EXPECT_TRUE(Log().contains(QStringLiteral("program key 66")));
  one.TurnKeysInto(0);
  input.Type(QStringLiteral("a"));
  EXPECT_EQ(Log(), Lines({"one key 65", "program key 0", "one key up 65", "program key up 66"}));
}

TEST_F(MapToolsTest, ListsItsToolsAsLongAsTheyAreThere) {
  TMapToolsManager &tools = *map.GetMapToolsManager();
  auto third = std::make_unique<ToolDouble>(log, "third");
  third->SetTessera(&map);
  EXPECT_EQ(tools.GetCount(), 3);
  EXPECT_EQ(tools.GetMapTools(2), third.get());
  EXPECT_THROW(static_cast<void>(tools.GetMapTools(3)), ERangeError);
  EXPECT_THROW(tools.SetMapTools(-1, &one), ERangeError);
  third.reset();
  EXPECT_EQ(tools.GetCount(), 2);
  ToolDouble byHand(log, "by hand");
  tools.SetMapTools(0, &byHand);
  EXPECT_EQ(tools.GetMapTools(0), &byHand);
  one.SetTessera(nullptr);
  EXPECT_EQ(one.GetMapToolsManager(), nullptr);
  {
    ToolDouble brief(log, "brief");
    tools.Add(&brief);
  }
  EXPECT_EQ(tools.GetCount(), 2);
}

TEST_F(MapToolsTest, MovesAToolFromMapToMapWithItsTurn) {
  TTessera other;
  ToolDouble there(log, "there");
  there.SetTessera(&other);
  there.SetActive(true);
  one.SetCursor(TCustomMapTool::crSizeAll);
  one.SetActive(true);
  Log();
  one.SetTessera(&other);
  EXPECT_EQ(Log(), Lines({"one done", "there off", "there done", "one init"}));
  EXPECT_EQ(map.GetMapToolsManager()->GetActiveMapTool(), nullptr);
  EXPECT_EQ(other.GetMapToolsManager()->GetActiveMapTool(), &one);
  EXPECT_EQ(other.cursor().shape(), Qt::SizeAllCursor);
  ToolDouble loose(log, "loose");
  loose.SetActive(true);
  EXPECT_EQ(Log(), Lines({})) << "without a map nothing is told";
  EXPECT_TRUE(loose.GetActive());
  EXPECT_FALSE(loose.GetEnabled());
  EXPECT_FALSE(two.GetEnabled());
  AddLayer();
  EXPECT_TRUE(two.GetEnabled());
}

TEST_F(MapToolsTest, FindsTheMapOfAForm) {
  QObject form;
  EXPECT_EQ(TCustomMapTool::FindTessera(form), nullptr);
  auto *first = new QWidget;
  const std::unique_ptr<QWidget> window(first);
  auto *left = new QWidget(first);
  auto *right = new QWidget(first);
  auto *inLeft = new TTessera(left);
  EXPECT_EQ(TCustomMapTool::FindTessera(*first), nullptr) << "the last child decides";
  auto *inRight = new TTessera(right);
  EXPECT_EQ(TCustomMapTool::FindTessera(*first), inRight);
  EXPECT_EQ(TCustomMapTool::FindTessera(*left), inLeft);
  auto *direct = new TTessera(first);
  EXPECT_EQ(TCustomMapTool::FindTessera(*first), direct);
}

}  // namespace
}  // namespace tessera::test
