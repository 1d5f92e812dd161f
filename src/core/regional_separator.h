#pragma once

/// The decimal separator of the user's regional settings, as the system tells it now; "." where
/// there are none. The process's own locale stays as it is.
char askRegionalSeparator();
