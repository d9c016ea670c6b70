// Accessor is an interface: its buffered byte access is inline in Accessor.h. The destructor
// is its one out-of-line member, so that the exported vtable and type information are emitted
// once, by the library.
#include "Accessor.h"

Accessor::~Accessor() = default;
