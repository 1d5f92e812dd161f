// What the desktop program carries; the resource compiler reads this too.
#ifndef APP_WIN32_RESOURCES_H
#define APP_WIN32_RESOURCES_H

#define kLogo100 100
#define kLogo150 150
#define kLogo200 200

#endif
