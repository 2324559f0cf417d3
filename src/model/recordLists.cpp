// recordLists.cpp - the lists of records, compiled here once and not in every file that copies a record.
#include "model/XMLParsing.h"

template class std::vector<struct_SM>;
template class std::vector<Struct_Fmmu>;
template class std::vector<Struct_DCPdo>;
template class std::vector<Struct_DCSm>;
template class std::vector<Struct_DCOpMode>;

template class std::vector<struct_EntryPDOContent>;
template class std::vector<struct_PDOList>;

template class std::vector<struct_InitCmd>;
template class std::vector<struct_moduleInitCmd>;

template class std::vector<ArrayInfo>;
template class std::vector<EnumInfo>;
template class std::vector<DataTypeSubItem>;
template class std::vector<struct_DataTypes>;
template class std::vector<struct_Subitem>;
template class std::vector<struct_Object>;

template class std::vector<struct_moduleEntry>;
template class std::vector<modulePdo>;
template class std::vector<struct_module>;
template class std::vector<struct_commentmodule>;

template class std::vector<struct_ModuleClass>;
template class std::vector<struct_ModuleIdent>;
template class std::vector<struct_slotmodule>;
template class std::vector<struct_Slot>;

template class std::vector<struct_EtherCatDevice>;
template class std::vector<struct_FilenameDevice>;
