#include "WindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/About_Strativo.h"
#include "ui/ConCommentBox.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WINFORM.h"
#include "ui/WINPRO.h"

#include <map>
#include <set>

namespace strativo {
namespace {

/// The controls of a window that have given names; a number is that of an array's elements.
using Controls = std::map<std::string, int>;

const std::map<std::string, Controls> windows = {
    {"UValue",
     {{"NameText", 0},
      {"IndexText", 0},
      {"TypeCombo", 0},
      {"EditThick", 0},
      {"AbsorpText", 0},
      {"Construction", 0},
      {"Draglabel", 5},
      {"Label2", 9},
      {"Result", 0},
      {"Label6", 0},
      {"ConName", 0},
      {"VWConComments", 0}}},
    {"UvalsDialog",
     {{"MatOption", 2}, {"UValueList", 0}, {"Label4", 0}, {"Label1", 3}, {"Label2", 4}}},
    {"WinForm",
     {{"WInlab", 0},
      {"WinList", 0},
      {"Addbut", 0},
      {"EditBut", 0},
      {"DelBut", 0},
      {"WFLoad", 0},
      {"Closebut", 0}}},
    {"Profile",
     {{"Graph", 0},
      {"GlassProp", 2},
      {"SelColumn", 0},
      {"EditLevel", 0},
      {"Label1", 0},
      {"GlassName", 0},
      {"GlassText", 0},
      {"OkBut", 0},
      {"CancelBut", 0}}},
    {"ConCommentBox", {{"Comment", 0}, {"OKButton", 0}, {"CancelButton", 0}}},
    {"About_Strativo", {{"Picture1", 0}, {"Label1", 3}, {"Close_But", 0}}}};

std::multiset<std::string> NamesIn(const QWidget& window) {
    std::multiset<std::string> names;
    for (const QObject* child : window.findChildren<QObject*>())
        names.insert(child->objectName().toStdString());
    return names;
}

/// "Label2_3" is an element of the array "Label2".
std::string WithoutIndex(const std::string& name) {
    const std::size_t end = name.find_last_not_of("0123456789");
    return end != std::string::npos && name[end] == '_' ? name.substr(0, end) : name;
}

class ControlNames : public WindowTest {
protected:
    void ExpectGivenNames(const QWidget& window) {
        const Controls& controls = windows.at(window.objectName().toStdString());
        const std::multiset<std::string> names = NamesIn(window);
        std::multiset<std::string> expected;
        for (const auto& [name, elements] : controls) {
            if (elements == 0)
                expected.insert(name);
            for (int index = 0; index < elements; ++index)
                expected.insert(name + "_" + std::to_string(index));
        }
        for (const std::string& name : expected)
            EXPECT_EQ(names.count(name), 1U) << name;
        for (const std::string& name : names) {
            const bool wrong = IsGiven(WithoutIndex(name)) && expected.count(name) == 0;
            EXPECT_FALSE(wrong) << name << " is another control's name";
        }
    }

    static bool IsGiven(const std::string& name) {
        return std::any_of(windows.begin(), windows.end(),
                           [&](const auto& window) { return window.second.count(name) != 0; });
    }
};

TEST_F(ControlNames, EveryWindowHasTheGivenOnesAndGivesThemToNothingElse) {
    AddConstruction(project, {"BRICK"});
    AddGlassType(project, "CLEAR");
    ExpectGivenNames(UValue(1, program));
    ExpectGivenNames(UvalsDialog(program));
    ExpectGivenNames(WinForm(program));
    ExpectGivenNames(Profile(program));
    ExpectGivenNames(ConCommentBox(program));
    ExpectGivenNames(About_Strativo(program, QString()));
}

} // namespace
} // namespace strativo
