# The exported registry toolkit (CReg, CRegVal, RegVal..., Reg...), on a scratch store.
quillbox_unit_test(test_regkit
  LIBS quillbox_platform quillbox_basekit quillbox_module ICU::uc ICU::i18n
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/regkit/RegKitTest.cpp)
