// What the verb "show" prints of a control, of the main window, and of the settings store.
#pragma once

#include "controls/Control.h"
#include "forms/Window.h"
#include "platform/RegistryStore.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

Effect DescribeControl(const Control& control);
Effect DescribeWindow(const Window& window);
Effect DescribeStore(RegistryStore& store);

}  // namespace brenwick
