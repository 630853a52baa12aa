#pragma once

namespace tilwin::macos {

/// Sets LANG to the user's language and region, unless it is set. ICU takes its locale from the environment,
/// where programs started from the Dock or the Finder have none. Call it before there is another thread.
void takeUserLocale();

}  // namespace tilwin::macos
