#include "EditorFixture.h"

template class EditorHostTest<TestEditor>;
