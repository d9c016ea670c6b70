#pragma once
// The host's own Resources.h, found by the host's #include <Resources.h> and never by the library's headers.
#define HOST_OWN_RESOURCES_H 1
