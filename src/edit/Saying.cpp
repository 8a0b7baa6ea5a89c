#include "edit/Saying.h"

namespace strativo {

void Say(Project& project, std::string_view text) {
    if (!project.said.empty())
        project.said += "   ";
    project.said += text;
}

} // namespace strativo
