#include "BrowserSessions/GNOMEWeb/GNOMEWebSession.h"
#include "Fuzz/SoundSession.h"
#include "Fuzz/Target.h"

// The input is the session file of GNOME Web, which is XML.
void Fuzz::run(std::string_view input) {
  const auto session = BrowserSessions::gnomeWebState(input);
  if (session)
    requireSound(*session, input.size(),
                 {.tab = std::string_view("<embed/>").size(), .window = std::string_view("<window></window>").size()});
  else
    require(!session.error().empty(), "A failure has a reason.");
}
