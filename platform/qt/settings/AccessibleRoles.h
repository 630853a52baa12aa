#pragma once

namespace tilwin::qt {

/// Tells screen readers what the parts of the settings window are that Qt does not know: the window itself,
/// its pictures and its groups. Once for the whole program; further calls change nothing.
void installAccessibleRoles();

}  // namespace tilwin::qt
