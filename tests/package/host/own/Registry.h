#pragma once
// The host's own Registry.h, found by the host's #include <Registry.h> and never by the library's headers.
#define HOST_OWN_REGISTRY_H 1
