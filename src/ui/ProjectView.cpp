#include "ui/ProjectView.h"

#include "edit/ConstructionSlots.h"
#include "ui/StatusBar.h"
#include "ui/Text.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace strativo {

ProjectView::ProjectView(Project& shownProject, WindowArea& windows, UvalsDialog& materials,
                         StatusBar& statusBar)
    : project(shownProject), area(windows), dialog(materials), status(statusBar) {}

void ProjectView::Follow(UValue* construction) {
    constructions.emplace_back(construction);
}

void ProjectView::Follow(WinForm* glassTypes) {
    glass = glassTypes;
}

void ProjectView::Update() {
    FollowConstructions();
    FollowContents();
    FollowDialog();
    if (glass != nullptr)
        glass->ShowGlassTypes();
    FollowActive();
    area.ShowVisible();
    status.ShowProject(project);
    if (const std::string said = std::exchange(project.said, {}); !said.empty())
        status.Say(PathText(said));
}

void ProjectView::FollowConstructions() {
    const Openings now = {project.openings, project.beginnings, project.constructionCount};
    if (now == seen)
        return;
    CloseWindowsOfThePast();
    if (now.beginnings != seen.beginnings) {
        CloseEmptyWindows();
        formerPlaces.clear();
    }
    OpenNewWindows();
    seen = now;
}

void ProjectView::CloseWindowsOfThePast() {
    project.closingInProgress = true;
    for (auto window = opened.begin(); window != opened.end();) {
        const auto [number, opening] = *window;
        const bool isThere =
            InUse(project, number) && project.constructions[number].window.opening == opening;
        if (!isThere) {
            formerPlaces[opening] = area.Position(number);
            area.Close(number);
        }
        window = isThere ? std::next(window) : opened.erase(window);
    }
    project.closingInProgress = false;
}

void ProjectView::CloseEmptyWindows() {
    for (const int id : area.Windows())
        if (id > 0 && opened.count(id) == 0)
            area.Close(id);
}

void ProjectView::OpenNewWindows() {
    const auto openingOf = [this](int number) {
        return project.constructions[number].window.opening;
    };
    std::vector<int> added;
    for (const int number : ConstructionsInUse(project))
        if (opened.emplace(number, openingOf(number)).second)
            added.push_back(number);
    std::sort(added.begin(), added.end(),
              [&](int a, int b) { return openingOf(a) < openingOf(b); });
    for (const int number : added)
        OpenWindow(number);
}

void ProjectView::OpenWindow(int number) {
    const auto former = formerPlaces.find(project.constructions[number].window.opening);
    if (area.Has(number)) {
        // If an empty window occupies this slot, the construction takes it over.
        area.SetCaption(number, CaptionOf(number));
        area.SetMinimised(number, false);
    } else if (former == formerPlaces.end()) {
        area.Open(number, CaptionOf(number));
    } else {
        area.OpenAt(number, CaptionOf(number), former->second);
    }
}

QString ProjectView::CaptionOf(int number) const {
    return InUse(project, number) ? ToText(ConstructionTitle(number))
                                  : QCoreApplication::translate("ProjectView", "Construction");
}

void ProjectView::FollowContents() {
    const auto isGone = [](const QPointer<UValue>& window) { return window == nullptr; };
    constructions.erase(std::remove_if(constructions.begin(), constructions.end(), isGone),
                        constructions.end());
    for (const QPointer<UValue>& window : constructions)
        window->Follow();
}

void ProjectView::FollowDialog() {
    dialog.Follow();
    if (!area.Has(dialogId))
        return;
    area.SetHidden(dialogId, project.dialogHidden);
    if (area.Caption(dialogId) != dialog.Caption())
        area.SetCaption(dialogId, dialog.Caption());
}

void ProjectView::FollowActive() {
    const int wanted = std::exchange(project.windowToActivate, 0);
    if (InUse(project, wanted)) {
        area.Activate(wanted);
        if (auto* window = qobject_cast<UValue*>(area.Content(wanted)))
            window->FocusList();
    } else if (area.ActiveWasClosed()) {
        ActivateCurrent();
    }
}

void ProjectView::ActivateCurrent() {
    if (InUse(project, project.currentConstruction))
        area.Activate(project.currentConstruction);
    else if (area.Active() == WindowArea::noWindow)
        area.ActivateTop();
}

void ProjectView::MinimiseAll() {
    for (const int slot : SlotsToMinimise(project)) {
        if (!area.Has(slot))
            area.Open(slot, CaptionOf(slot));
        area.SetMinimised(slot, true);
    }
    if (area.Active() != WindowArea::noWindow && area.IsMinimised(area.Active()))
        area.ActivateTop();
}

} // namespace strativo
