#include "desktop/ChildProcess.h"
#include "desktop/GlassWindows.h"

#include <gmock/gmock.h>
#include <thread>

namespace strativo {

namespace {

constexpr int times = 10;
constexpr std::chrono::milliseconds longEnough(1100); // for some ten repeats

/// Other programs that want the whole machine, more than one for each processor.
class Load {
public:
    Load() {
        const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
        for (unsigned i = 0; i < 2 * processors; ++i)
            programs.push_back(std::make_unique<ChildProcess>(
                std::vector<std::string>{"sh", "-c", "while :; do :; done"}));
    }
    bool IsThere() {
        return std::all_of(programs.begin(), programs.end(),
                           [](const auto& program) { return program->IsRunning(); });
    }

private:
    std::vector<std::unique_ptr<ChildProcess>> programs;
};

} // namespace

class HeldKeysStory : public GlassWindows {
protected:
    /// A construction of twelve layers of 100 mm, shown in construction window 1.
    void StartWithTwelveLayers() {
        std::vector<std::string> lines = {"!MATERIALS FILE = '../stdmat.lby'", "",
                                          "!CONSTRUCTION 'Wall'", "!TYPE OPAQUE", "!PARTS"};
        for (int layer = 1; layer <= 12; ++layer)
            lines.push_back((layer < 10 ? "_ " : "_") + std::to_string(layer)
                            + " =       20      0.100      0            * BLOCK");
        lines.insert(lines.end(), {"!END", ""});
        std::string file;
        for (const std::string& line : lines)
            file += line + "\r\n";
        Write("wall.con", file);
        Start("wall.con");
    }

    int LayerCount(int construction) {
        const std::string names = Layers(construction);
        return names.empty() ? 0
                             : static_cast<int>(std::count(names.begin(), names.end(), ',')) + 1;
    }

    Load load;
};

TEST_F(HeldKeysStory, TheKeyboardRepeatsAsAUsersDoes) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    Click(PlaceOf(1, "NameText"));
    Press({Key::ctrl, KeyOf('a')});
    HoldFor(KeyOf('x'), longEnough);
    EXPECT_TRUE(load.IsThere());
    EXPECT_GE(TextOf(1, "NameText").size(), 4U);
}

TEST_F(HeldKeysStory, DelRemovesOneLayerHoweverLongItIsHeld) {
    StartWithTwelveLayers();
    Click(LayerRow(1, 0));
    for (int time = 1; time <= times; ++time) {
        HoldFor(Key::del, longEnough);
        ASSERT_EQ(LayerCount(1), 12 - time);
    }
}

TEST_F(HeldKeysStory, CtrlZTakesOneStepBackHoweverLongItIsHeld) {
    StartWithTwelveLayers();
    Click(LayerRow(1, 0));
    for (int layer = 0; layer < 10; ++layer)
        Press(Key::del);
    Hold(Key::ctrl);
    for (int time = 1; time <= times; ++time) {
        HoldFor(KeyOf('z'), longEnough);
        ASSERT_EQ(LayerCount(1), 2 + time);
    }
    LetGo(Key::ctrl);
}

TEST_F(HeldKeysStory, EnterInsertsOneMaterialHoweverLongItIsHeld) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    Click(Material("BLOCK"));
    for (int time = 1; time <= times; ++time) {
        HoldFor(Key::enter, longEnough);
        ASSERT_EQ(LayerCount(1), time);
    }
}

TEST_F(HeldKeysStory, EnterStoresOneThicknessHoweverLongItIsHeld) {
    StartWithTwelveLayers();
    Click(LayerRow(1, 0));
    for (int time = 1; time <= times; ++time) {
        Type("25");
        HoldFor(Key::enter, longEnough);
        ASSERT_EQ(Focus(), "Construction");
    }
    Click(LayerRow(1, 0));
    EXPECT_EQ(TextOf(1, "EditThick"), "25");
    ChooseMenu("Filemenu", "SaveProject");
    const std::string file = Read("wall.con");
    std::size_t stored = 0;
    for (std::size_t at = file.find("0.025"); at != std::string::npos;
         at = file.find("0.025", at + 1))
        ++stored;
    EXPECT_EQ(stored, static_cast<std::size_t>(times));
}

TEST_F(HeldKeysStory, EnterGoesOnByOneColumnOfTheGlassEditorHoweverLongItIsHeld) {
    OpenGlassTypes();
    AddType();
    Enter("CLEAR");
    Press(Key::home); // selects the diffuse value
    Click(PlaceOf(box, "EditLevel"));
    for (int column = 2; column <= 11; ++column) {
        HoldFor(Key::enter, longEnough);
        ASSERT_EQ(TextOf(box, "SelColumn"),
                  "Transmission at " + std::to_string((column - 2) * 10) + " degrees");
    }
}

TEST_F(HeldKeysStory, EnterDoesNotAnswerTheBoxThatItOpens) {
    StartWithTwelveLayers();
    Click(LayerRow(1, 0));
    for (int time = 1; time <= times; ++time) {
        Type("0.5");
        HoldFor(Key::enter, longEnough);
        WaitForBox("Thickness error");
        Answer("Thickness error", "Thickness is set to less than 1", "OK");
        ASSERT_EQ(Focus(), "EditThick");
    }
}

} // namespace strativo
