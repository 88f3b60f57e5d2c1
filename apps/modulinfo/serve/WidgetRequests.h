#pragma once

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "serve/Bridge.h"

namespace tessara {

// The requests that a person's hands and eyes would make of the widgets. A widget that does not
// exist or is of the wrong kind is an RpcError (wrong parameters).

JsonText pressWidget(Bridge& bridge, const JsonReader& params);
JsonText selectInWidget(Bridge& bridge, const JsonReader& params);
/// A hidden box takes the text too: the settings decide what is shown, not what can be set.
JsonText typeIntoWidget(Bridge& bridge, const JsonReader& params);
JsonText widgetState(Bridge& bridge, const JsonReader& params);
JsonText widgetStates(Bridge& bridge, const JsonReader& params);
/// True if the timer was enabled and its handler ran.
JsonText tickTimer(Bridge& bridge, const JsonReader& params);

}  // namespace tessara
