#pragma once

// The numbers of what the desktop program carries; the resource compiler reads this too.
#define kLogo100 100
#define kLogo150 150
#define kLogo200 200
