#pragma once
// The host's own System.h, found by the host's #include <System.h> and never by the library's headers.
#define HOST_OWN_SYSTEM_H 1
