#pragma once

#include "serve/Bridge.h"
#include "serve/Parameters.h"

namespace tessara {

// The requests that go to the widgets, as the hands and eyes of a person do. A widget that does not
// exist or is of the wrong kind is an RpcError (wrong parameters).

OrderedJson pressWidget(Bridge& bridge, const Parameters& parameters);
OrderedJson selectInWidget(Bridge& bridge, const Parameters& parameters);
/// A box that is hidden takes the text all the same: a client has the settings' say over what is
/// shown, not over what can be set.
OrderedJson typeIntoWidget(Bridge& bridge, const Parameters& parameters);
OrderedJson tellWidget(Bridge& bridge, const Parameters& parameters);
OrderedJson tellWidgets(Bridge& bridge, const Parameters& parameters);
/// True if the timer was enabled and its handler ran.
OrderedJson tickTimer(Bridge& bridge, const Parameters& parameters);

}  // namespace tessara
