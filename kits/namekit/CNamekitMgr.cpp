#include "CNamekitMgr.h"

CNamekitMgr::~CNamekitMgr() = default;
