/* Everything that the library offers. */
#ifndef MTBX_MTBX_H
#define MTBX_MTBX_H

#include <mtbx/Aliases.h>
#include <mtbx/ColorPicker.h>
#include <mtbx/Controls.h>
#include <mtbx/Dialogs.h>
#include <mtbx/Displays.h>
#include <mtbx/Drag.h>
#include <mtbx/Events.h>
#include <mtbx/Files.h>
#include <mtbx/FixMath.h>
#include <mtbx/Folders.h>
#include <mtbx/Fonts.h>
#include <mtbx/Gestalt.h>
#include <mtbx/LowMem.h>
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGdi.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MTBXMemory.h>
#include <mtbx/MacErrors.h>
#include <mtbx/MacMemory.h>
#include <mtbx/MacTypes.h>
#include <mtbx/MacWindows.h>
#include <mtbx/OSUtils.h>
#include <mtbx/Palettes.h>
#include <mtbx/Pictures.h>
#include <mtbx/Processes.h>
#include <mtbx/QDOffscreen.h>
#include <mtbx/Quickdraw.h>
#include <mtbx/QuickdrawText.h>
#include <mtbx/Resources.h>
#include <mtbx/Script.h>
#include <mtbx/TextEdit.h>
#include <mtbx/TextUtils.h>
#include <mtbx/ToolUtils.h>

#endif
