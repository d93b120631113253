#include "commands/building_commands.h"

#include "commands/row_parts.h"
#include "commands/session.h"
#include "editor/building.h"

namespace pistaro {

void InsertBeforeCommand(Session& session, const std::string& code) {
    session.NameStep(StepOfInserting(session, std::string(ProductCode(code))));
    InsertBeforeSelected(session.Catalogue, session.Project.Design, session.Project.EditState, code,
                         session.TakeTimes());
}

} // namespace pistaro
