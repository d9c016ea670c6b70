#pragma once
// The host's own Controls.h, found by the host's #include <Controls.h> and never by the library's headers.
#define HOST_OWN_CONTROLS_H 1
