# The KTL file as a Kaitai Struct description, of which the compiler of Kaitai Struct makes readers for many languages.
# Rules and field names are those of ktl-format.md, the page beside it: -orig-id is the name there.
meta:
  id: ktl
  title: KTL device description of a motion controller
  file-extension: ktl
  endian: le
  ks-version: '0.10'
doc: |
  A compact description of EtherCAT slaves that the firmware of a motion controller reads. A file is a sequence of
  items, without a header, magic number, checksum or length. Each item begins with its type and its size in bytes, head
  included, and a reader that does not know a type goes on after so many bytes.

  A run is one device block for each device, and then an End item, which closes the run and not the file: a file that
  was added to has several runs. A run without its End item was cut short. A device block begins with a General item,
  and device items belong to the last General before them; module items belong to the last ModuleType. Of a device
  block only General, EoE and CoE are always there.

  This description reads broken files too, as far as it goes without a guess: an item is as long as the file reaches,
  and there are as many records as its head announces and its bytes allow.

  A few devices far from the usual have an item that announces more or fewer records than are there: ModuleCoEInitCmd
  both ways, EoE fewer, and CoE fewer values. The next item then starts elsewhere than the size says, and this
  description, like every reader that goes by sizes, does not find it.
doc-ref: ktl-format.md
seq:
  - id: items
    type: item(_io.pos)
    repeat: until
    repeat-until: not _.is_possible or _io.size - _io.pos < 8
    if: _io.size >= 8
  - id: rest
    size-eos: true
    doc: |
      Empty in a whole file. Else the file ends in the head of an item, or the last of the items has a head that cannot
      be right, and nothing tells where the next one is.
types:
  item:
    -orig-id: KtlItemHead
    params:
      - id: offset
        type: u4
        doc: Place of the item in the file.
    seq:
      - id: item_type
        -orig-id: m_iItemType
        type: u4
        enum: item_code
      - id: size
        -orig-id: m_iSize
        type: u4
        doc: Bytes of the item, head and fill included. At least 8; written as a multiple of 4.
      - id: body
        size: present - 8
        type:
          switch-on: item_type
          cases:
            item_code::end_of_run: end_item
            item_code::general: general_item
            item_code::sm: sm_item
            item_code::dc: dc_item
            item_code::rx_pdo: pdo_item
            item_code::tx_pdo: pdo_item
            item_code::eoe: eoe_item
            item_code::coe: coe_item
            item_code::slot: slot_item
            item_code::eeprom: eeprom_item
            item_code::object_detect_type: object_item
            item_code::object_config_type: object_item
            item_code::sub_object_type: sub_object_item
            item_code::module_type: module_item
            item_code::fmmu: fmmu_item
            item_code::slot_pre_config: slot_preconfig_item
            item_code::device_more_info: more_info_item
            item_code::module_tpdo_entry_type: module_pdo_item
            item_code::module_rpdo_entry_type: module_pdo_item
            item_code::module_coe_init_cmd_type: module_cmd_item
            _: words
        if: is_possible and present >= head_size
      - id: cut_body
        size: present - 8
        if: is_possible and present < head_size
        doc: What there is of an item that is too short for its own head.
    instances:
      is_possible:
        value: size >= 8 and size <= 0x7fffffff and item_type.to_i <= 0x7fffffff
        doc: |
          Type and size are read as signed numbers. A size below 8 or a negative type means that the file is corrupt.
      present:
        value: 'size < _root._io.size - offset ? size : _root._io.size - offset'
        doc: Bytes of the item that are there. A file can end inside its last item.
      head_size:
        value: >-
          item_type == item_code::general ? 52 :
          item_type == item_code::eeprom ? 40 :
          item_type == item_code::rx_pdo or item_type == item_code::tx_pdo or
          item_type == item_code::module_tpdo_entry_type or item_type == item_code::module_rpdo_entry_type or
          item_type == item_code::object_detect_type or item_type == item_code::object_config_type or
          item_type == item_code::sub_object_type ? 28 :
          item_type == item_code::device_more_info ? 24 :
          item_type == item_code::slot or item_type == item_code::module_type ? 20 :
          item_type == item_code::coe or item_type == item_code::slot_pre_config ? 16 :
          item_type == item_code::end_of_run or item_type == item_code::fmmu or item_type == item_code::sm or
          item_type == item_code::dc or item_type == item_code::eoe or
          item_type == item_code::module_coe_init_cmd_type ? 12 :
          8
        doc: Bytes of the item before its records.

  words:
    doc: |
      An item of a code that is reserved or not known. Later versions may have such items, and longer ones of the codes
      that are known: go by the size, and do not test reserved fields.
    seq:
      - id: words
        type: u4
        repeat: expr
        repeat-expr: _io.size / 4
      - id: rest
        size-eos: true

  tail_word:
    doc: A 32-bit word after the commands of a CoE item.
    params:
      - id: start
        type: u4
    seq:
      - id: value
        type: u4
    instances:
      left:
        value: _io.size - start
      copied:
        value: 'left < 16 ? left : 16'
      copy:
        pos: start
        size: copied
      head:
        io: _root._io
        pos: _parent._parent.offset
        size: copied
      zeros:
        pos: start + copied
        size: left - copied
      begins_fill:
        value: copy == head and (zeros.length == 0 or zeros.max == 0)
        doc: |
          Whether the fill begins here: a copy of the head of the item, as far as there is room, and zeros after it.
          Fill bytes have no meaning. Never read them as values.

  end_item:
    -orig-id: struct_KTL_ItemEnd
    doc: 'End: closes a run of devices. Device items belong to the last General before them.'
    seq:
      - id: rev
        -orig-id: m_iRev
        type: u4
        doc: reserved, 0
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  general_item:
    -orig-id: struct_KTL_EtherCatDeviceType
    doc: 'General: opens a device.'
    seq:
      - id: vendor_id
        -orig-id: m_iVendor_Id
        type: u4
      - id: product_code
        -orig-id: m_iProduct_Code
        type: u4
      - id: revision_no
        -orig-id: m_iRevision_No
        type: u4
      - id: serial_no
        -orig-id: m_iSerial_No
        type: u4
        doc: '0 where the ESI has none'
      - id: device_type
        -orig-id: m_iDeviceType
        type: u2
        enum: device_type
      - id: sdo_support
        -orig-id: m_bSdoSupport
        type: u2
        doc: '0 or 1'
      - id: slot_count
        -orig-id: m_iSlotCount
        type: u2
        doc: 'device types 3 and 5: slot positions, low 16 bits; else 0'
      - id: eoe_support
        -orig-id: m_bEoeSupport
        type: u2
        doc: 'reserved, 0 even for a device with EoE: go by the EoE item'
      - id: has_od
        -orig-id: m_bHasOD
        type: u1
        doc: reserved, 0, as the next seven
      - id: list_od
        -orig-id: m_bListOD
        type: u1
      - id: pdo_read_verify
        -orig-id: m_bPdoReadVerify
        type: u1
      - id: add_align
        -orig-id: m_bAddAlign
        type: u1
      - id: align_sign
        -orig-id: m_iAlignSign
        type: u4
      - id: align_sign2
        -orig-id: m_iAlignSign2
        type: u4
      - id: drive1600_write
        -orig-id: m_iDrive1600Write
        type: u2
      - id: drive1600_offset
        -orig-id: m_iDrive1600Offset
        type: u2
      - id: drive_axies
        -orig-id: m_iDriveAxies
        type: u2
        doc: number of drive axes
      - id: module_type_max
        -orig-id: m_iModuleTypeMax
        type: u2
        doc: 'device types 3 and 5: modules of the ESI file, low 16 bits; else 0'
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  fmmu_item:
    -orig-id: struct_KTL_FmmuType
    doc: 'FMMU: all FMMUs of a device.'
    seq:
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n
      - id: records
        -orig-id: m_aStrKTL_FmmuAttrb
        type: fmmu
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 4) / 8 ? count : (_io.size - 4) / 8'
        doc: What the head announces, or what is there. A count is not to be believed.

  sm_item:
    -orig-id: struct_KTL_SmType
    doc: 'SM: all sync managers of a device that are not virtual.'
    seq:
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n
      - id: records
        -orig-id: m_aStrKTL_SmAttrb
        type: sm
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 4) / 16 ? count : (_io.size - 4) / 16'
        doc: What the head announces, or what is there. A count is not to be believed.

  dc_item:
    -orig-id: struct_KTL_DcType
    doc: 'DC: all operation modes of a device, the chosen one first.'
    seq:
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n
      - id: records
        -orig-id: m_aStrKTL_DcAttrb
        type: dc
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 4) / 28 ? count : (_io.size - 4) / 28'
        doc: What the head announces, or what is there. A count is not to be believed.

  pdo_item:
    -orig-id: struct_KTL_PDOListType
    doc: 'RxPdo and TxPdo: one PDO. One that is on no sync manager is a choice that nobody made: do not map it.'
    seq:
      - id: fixed
        -orig-id: Fixed
        type: u1
        doc: '0 or 1'
      - id: mandatory
        -orig-id: Mandatory
        type: u1
        doc: '0 or 1'
      - id: is_virtual
        -orig-id: m_bVirtual
        type: u2
        doc: reserved, 0
      - id: sm
        -orig-id: SM
        type: s4
        doc: number of the sync manager, virtual ones counted too; negative if the PDO is on none
      - id: su
        -orig-id: SU
        type: s4
        doc: sync unit; 0 if missing
      - id: index_attributes
        -orig-id: IndexAttributes
        type: u2
        doc: PDO index
      - id: rev
        -orig-id: m_rev
        type: u2
        doc: reserved, 0
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n, at least 1
      - id: records
        -orig-id: m_aStrKTL_EntryPDOContent
        type: pdo_entry
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 20) / 20 ? count : (_io.size - 20) / 20'
        doc: What the head announces, or what is there. A count is not to be believed.

  eoe_item:
    -orig-id: struct_KTL_EOE
    doc: |
      EoE: flags and startup commands. Count and size go by the low 8 bits of the number of commands, all of which are
      written: 256 commands are announced as none.
    seq:
      - id: ip
        -orig-id: m_bIP
        type: u1
        doc: '0 or 1'
      - id: mac
        -orig-id: m_bMAC
        type: u1
        doc: '0 or 1'
      - id: time_stamp
        -orig-id: m_bTimeStamp
        type: u1
        doc: reserved, 0
      - id: init_cmd_count
        -orig-id: m_iInitCmdCount
        type: u1
        doc: n, low 8 bits
      - id: records
        -orig-id: m_aInitCmd
        type: init_cmd
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'init_cmd_count < (_io.size - 4) / 12 ? init_cmd_count : (_io.size - 4) / 12'
        doc: What the head announces, or what is there. A count is not to be believed.

  coe_item:
    -orig-id: struct_KTL_COE
    doc: |
      CoE: flags, startup commands, the 32-bit values of all complete accesses one after another, in the order of
      their commands and at most 4096 bytes, and a fill. The fill begins with a copy of the head, and zeros follow:
      bytes without a meaning. A complete access whose values did not fit has none, and must not be sent.
    seq:
      - id: sdo_info
        -orig-id: m_bSdoInfo
        type: u1
        doc: '0 or 1, as the next five'
      - id: pdo_assign
        -orig-id: m_bPdoAssign
        type: u1
      - id: pdo_upload
        -orig-id: m_bPdoUpload
        type: u1
      - id: pdo_config
        -orig-id: m_bPdoConfig
        type: u1
      - id: segmented_sdo
        -orig-id: m_bSegmentedSdo
        type: u1
      - id: complete_access
        -orig-id: m_bCompleteAccess
        type: u1
        doc: use of complete access
      - id: diag_history
        -orig-id: m_bDiagHistory
        type: u1
        doc: '0 or 1'
      - id: init_cmd_count
        -orig-id: m_iInitCmdCount
        type: u1
        doc: 'c up to 254; 255 is to say: count them from m_iSize. See num_announced'
      - id: records
        -orig-id: m_aInitCmd
        type: init_cmd
        repeat: expr
        repeat-expr: num_records
      - id: tail
        type: tail_word(_io.pos)
        repeat: until
        repeat-until: _.begins_fill or _io.size - _io.pos < 4
        if: _io.size - _io.pos >= 4
        doc: |
          The 32-bit values of all complete accesses, up to the end of the item or the first word of the fill, which
          begins_fill tells. Nothing separates the values of one command from those of the next: each complete access
          has DataBytes / 4 of them, if the lengths of all add up to the values that are there.
      - id: rest
        size-eos: true
        doc: The rest of the fill.
    instances:
      room:
        value: '(_parent.size - 16) / 12'
        doc: Commands that the announced size has room for. Values of complete accesses count as commands here.
      num_announced:
        value: 'init_cmd_count == 255 or room > 254 ? room : init_cmd_count'
        doc: |
          Commands that the item announces. The byte saturates: at 255, and wherever the size leaves room for more than
          254 commands, the size counts. With values of complete accesses that is too many, and the last of the records
          are none: stop at the first that cannot be one.
      num_records:
        value: 'num_announced < (_io.size - 8) / 12 ? num_announced : (_io.size - 8) / 12'
        doc: What the head announces, or what is there. A count is not to be believed.

  slot_item:
    -orig-id: struct_KTL_Slots
    doc: 'Slot: all slots of a device. Both counts have the low 8 bits only, while all records are there.'
    seq:
      - id: max_slot_count
        -orig-id: m_iMaxSlotCount
        type: u2
        doc: n, low 8 bits only
      - id: download_module_ident_list
        -orig-id: m_bDownloadModuleIdentList
        type: u1
        doc: '0 or 1'
      - id: download_module_ident_address_list
        -orig-id: m_bDownloadModuleIdentAddressList
        type: u1
        doc: '0 or 1'
      - id: slot_pdo_increment
        -orig-id: m_iSlotPdoIncrement
        type: u2
        doc: step of a PDO index per slot, low 16 bits
      - id: slot_index_increment
        -orig-id: m_iSlotIndexIncrement
        type: u2
        doc: step of an object index per slot, low 16 bits
      - id: cur_slot_count
        -orig-id: m_iCurSlotCount
        type: u2
        doc: n, low 8 bits only
      - id: rev
        -orig-id: m_iRev
        type: u2
        doc: reserved, 0
      - id: records
        -orig-id: m_aSlotContent
        type: slot
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_announced:
        value: '(_parent.size - 20) / 124'
        doc: Both counts of the head have the low 8 bits of n only, so the size counts.
      num_records:
        value: 'num_announced < (_io.size - 12) / 124 ? num_announced : (_io.size - 12) / 124'
        doc: What the head announces, or what is there. A count is not to be believed.

  slot_preconfig_item:
    -orig-id: struct_KTL_Slots_Preconfig
    doc: |
      SlotPreConfig: the modules at the slot positions. A default module is at the number of its slot, one that was
      put in by hand at its place; nothing tells the two apart. n wraps at 256, and there are only n records.
    seq:
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n, at most 255; may be 0
      - id: count_real
        -orig-id: m_iCountReal
        type: u4
        doc: modules at positions below n, at most 255; several can share a position
      - id: records
        -orig-id: m_aModuleIdent
        type: slot_position
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 8) / 8 ? count : (_io.size - 8) / 8'
        doc: What the head announces, or what is there. A count is not to be believed.

  more_info_item:
    -orig-id: struct_KTL_DeviceMoreInfo
    doc: |
      DeviceMoreInfo: UTF-8, the name of the device and, after a line feed each, those of the modules of its file.
      Read up to the first zero byte, or to the end of the item. Only this item tells the version, and not every file
      has one.
    seq:
      - id: date
        -orig-id: m_iDate
        type: u4
        doc: year * 10000 + month * 100 + day
      - id: time
        -orig-id: m_iTime
        type: u4
        doc: hour * 10000 + minute * 100 + second
      - id: version
        -orig-id: m_iVersion
        type: u4
        doc: KTL_FORMAT_VERSION
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: reserved, 0
      - id: text
        -orig-id: m_aStrChar
        type: strz
        encoding: UTF-8
        consume: false
        eos-error: false
        doc: |
          The name of the device and, after a line feed each, those of the modules of its file, up to the first zero
          byte. A name with which the text would pass 999 bytes is left out as a whole, and so is all after it.
      - id: rest
        size-eos: true
        doc: Fill, zeros.

  module_item:
    -orig-id: struct_KTL_moduleType
    doc: 'ModuleType: opens a module. Module items belong to the last one before them.'
    seq:
      - id: module_ident
        -orig-id: TypeAttributes.ModuleIdent
        type: u4
      - id: module_pdo_group
        -orig-id: TypeAttributes.ModulePdoGroup
        type: s4
      - id: sra_paramter_supported
        -orig-id: TypeAttributes.SRA_ParamterSupported
        type: u1
        doc: '0 or 1'
      - id: attr_rev
        -orig-id: TypeAttributes.m_attrRev
        type: u1
        doc: reserved, 0
      - id: u16_rev
        -orig-id: TypeAttributes.m_u16Rev
        type: u2
        doc: reserved, 0
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  module_pdo_item:
    -orig-id: struct_KTL_moduleEntryType
    doc: |
      ModuleRPDOEntry and ModuleTPDOEntry: the entries of all PDOs of one direction together, under the head of the
      first.
    seq:
      - id: fixed
        -orig-id: Fixed
        type: u1
        doc: '0 or 1'
      - id: mandatory
        -orig-id: Mandatory
        type: u1
        doc: '0 or 1'
      - id: is_virtual
        -orig-id: m_bVirtual
        type: u2
        doc: reserved, 0
      - id: sm
        -orig-id: SM
        type: s4
        doc: number of the sync manager
      - id: su
        -orig-id: SU
        type: s4
        doc: sync unit
      - id: index_attributes
        -orig-id: IndexAttributes
        type: u2
        doc: 'PDO index, as declared: not shifted for any slot'
      - id: rev
        -orig-id: m_rev
        type: u2
        doc: reserved, 0
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n; may be 0
      - id: records
        -orig-id: m_alist
        type: module_entry
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 20) / 12 ? count : (_io.size - 20) / 12'
        doc: What the head announces, or what is there. A count is not to be believed.

  module_cmd_item:
    -orig-id: struct_KTL_moduleInitCmdType
    doc: |
      ModuleCoEInitCmd: startup commands of a module. n and m_iSize are counted by rules of their own: for a few
      devices more records follow than they say, or fewer, and nothing fills or cuts the item.
    seq:
      - id: count
        -orig-id: m_iCount
        type: u4
        doc: n
      - id: records
        -orig-id: m_alist
        type: module_cmd
        repeat: expr
        repeat-expr: num_records
      - id: rest
        size-eos: true
        doc: Bytes that belong to no record, such as one that is there in part only. Exports have none.
    instances:
      num_records:
        value: 'count < (_io.size - 4) / 16 ? count : (_io.size - 4) / 16'
        doc: What the head announces, or what is there. A count is not to be believed.

  eeprom_item:
    -orig-id: struct_KTL_EEPROM
    doc: EEPROM, kept in reserve.
    seq:
      - id: byte_size
        -orig-id: m_iByteSize
        type: u4
        doc: '2048'
      - id: config_data
        -orig-id: m_aConfigData
        type: u4
        repeat: expr
        repeat-expr: 7
        doc: all 0
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  object_item:
    -orig-id: struct_KTL_ObjectType
    doc: ObjectDetectType and ObjectConfigType, kept in reserve.
    seq:
      - id: index
        -orig-id: index
        type: u2
        doc: object index
      - id: rev
        -orig-id: m_iRev
        type: u2
        doc: reserved, 0
      - id: bit_size
        -orig-id: BitSize
        type: s4
      - id: access
        -orig-id: flags.Access
        type: u2
        enum: access
      - id: rev2
        -orig-id: flags.m_iRev2
        type: u2
        doc: reserved, 0
      - id: min_data
        -orig-id: info.MinData
        type: u4
      - id: max_data
        -orig-id: info.MaxData
        type: u4
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  sub_object_item:
    -orig-id: struct_KTL_SubObjectType
    doc: SubObjectType, kept in reserve.
    seq:
      - id: sub_index
        -orig-id: subIndex
        type: u4
      - id: bit_size
        -orig-id: BitSize
        type: s4
      - id: access
        -orig-id: flags.Access
        type: u2
        enum: access
      - id: rev
        -orig-id: flags.m_iRev
        type: u2
        doc: reserved, 0
      - id: min_data
        -orig-id: info.MinData
        type: u4
      - id: max_data
        -orig-id: info.MaxData
        type: u4
      - id: rest
        size-eos: true
        doc: What later versions may add. Exports have none.

  fmmu:
    -orig-id: struct_KTL_FmmuAttributes
    doc: One FMMU.
    seq:
      - id: op_only
        -orig-id: m_iOpOnly
        type: u1
        doc: '0 or 1'
      - id: sm
        -orig-id: m_iSm
        type: u1
        doc: 'sync manager; 0 where the ESI has none, which is not sync manager 0: match by m_iFmmuType'
      - id: su
        -orig-id: m_iSu
        type: u1
        doc: sync unit; 0 where the ESI has none
      - id: fmmu_type
        -orig-id: m_iFmmuType
        type: u1
        enum: fmmu_type
      - id: reserve
        -orig-id: m_reserve
        type: u4
        doc: reserved, 0

  sm:
    -orig-id: struct_KTL_SmAttributes
    doc: |
      One sync manager. Its place is its number only if no virtual one comes before it, since those are not in the
      file.
    seq:
      - id: start_address
        -orig-id: m_iStartAddress
        type: u2
      - id: min_size
        -orig-id: m_iMinSize
        type: u2
      - id: max_size
        -orig-id: m_iMaxSize
        type: u2
      - id: default_size
        -orig-id: m_iDefaultSize
        type: u2
        doc: of outputs and inputs what the assigned PDOs need; left-over bits are lost
      - id: control_byte
        -orig-id: ControlByte
        type: u4
      - id: enable
        -orig-id: Enable
        type: u4

  dc:
    -orig-id: struct_KTL_DcAttributes
    doc: One operation mode of the distributed clocks.
    seq:
      - id: desc
        -orig-id: m_aDesc
        type: u1
        repeat: expr
        repeat-expr: 24
        doc: reserved, all 0
      - id: assign_activate
        -orig-id: AssignActivate
        type: u4

  pdo_entry:
    -orig-id: struct_KTL_EntryPDOContent
    doc: One entry of a PDO. A gap is an ordinary entry, and its bits count.
    seq:
      - id: fixed
        -orig-id: m_bFixed
        type: u2
        doc: '0 or 1'
      - id: index
        -orig-id: Index
        type: u2
        doc: object index, 0 for a gap
      - id: sub_index
        -orig-id: SubIndex
        type: u4
      - id: bitlen
        -orig-id: Bitlen
        type: s4
        doc: length in bits
      - id: link_to
        -orig-id: bLinkTo
        type: s4
        doc: reserved, 0
      - id: link_to_data
        -orig-id: LinkToData
        type: s4
        enum: link

  init_cmd:
    -orig-id: struct_KTL_InitCmd
    doc: One startup command, in EoE and CoE items alike.
    seq:
      - id: transition
        -orig-id: Transition
        type: u2
        enum: transition
      - id: index
        -orig-id: Index
        type: u2
        doc: object index
      - id: sub_index
        -orig-id: SubIndex
        type: u1
        doc: low 8 bits
      - id: is_complete_access
        -orig-id: bIfCA
        type: u1
        doc: '1 for a complete access, whose values are in the block after the commands'
      - id: data_bytes
        -orig-id: DataBytes
        type: u2
        doc: length of the value; above 4 with Data 0 the value is lost, do not send it
      - id: data
        -orig-id: Data
        type: u4
        doc: the value; without meaning for a complete access

  slot:
    -orig-id: struct_KTL_SlotContent
    doc: One slot. The order of the two steps differs from that of the head.
    seq:
      - id: min_instances
        -orig-id: m_iMinInstances
        type: u4
      - id: max_instances
        -orig-id: m_iMaxInstances
        type: u4
        doc: '16 at most'
      - id: slot_index_increment
        -orig-id: SlotIndexIncrement
        type: u4
        doc: step of an object index, of this slot
      - id: slot_pdo_increment
        -orig-id: SlotPdoIncrement
        type: u4
        doc: step of a PDO index, of this slot
      - id: is_module_ident
        -orig-id: m_bModuleIdent
        type: u2
        doc: reserved, 0
      - id: module_ident_or_class_count
        -orig-id: m_iModuleIdentOrClassCount
        type: u2
        doc: reserved, 0
      - id: module_ident
        -orig-id: ModuleIdent
        type: u4
        repeat: expr
        repeat-expr: 24
        doc: reserved, all 0
      - id: module_class_index
        -orig-id: aModuleClassIndex
        type: u1
        repeat: expr
        repeat-expr: 8
        doc: reserved, all 0

  slot_position:
    -orig-id: struct_KTL_Slot_PreModuleIdent
    doc: One slot position.
    seq:
      - id: module_ident
        -orig-id: m_iModuleIdent
        type: u4
        doc: ident of the module, 0 if there is none
      - id: ireserve
        -orig-id: m_ireserve
        type: u4
        doc: reserved, 0

  module_entry:
    -orig-id: struct_KTL_modulePdoOne
    doc: One entry of a module.
    seq:
      - id: depend_on_slot
        -orig-id: DependOnSlot
        type: u1
        doc: '1 if the index steps with the slot'
      - id: attr_rev
        -orig-id: m_AttrRev
        type: u1
        doc: reserved, 0
      - id: index
        -orig-id: index
        type: u2
        doc: object index, as declared
      - id: sub_index
        -orig-id: SubIndex
        type: u2
      - id: bit_len
        -orig-id: BitLen
        type: u2
        doc: 'length in bits: low 16 bits for Rx, low 8 bits for Tx'
      - id: link_to_data
        -orig-id: LinkToData
        type: s4
        enum: link

  module_cmd:
    -orig-id: struct_KTL_moduleStartupOne
    doc: One startup command of a module.
    seq:
      - id: depend_on_slot
        -orig-id: DependOnSlot
        type: u1
        doc: '1 if the index steps with the slot'
      - id: depend_on_slot_group
        -orig-id: DependOnSlotGroup
        type: u1
        doc: reserved, 0
      - id: adapt_automatically
        -orig-id: AdaptAutomatically
        type: u1
        doc: reserved, 0
      - id: data_bytes
        -orig-id: m_DataBytes
        type: u1
        doc: length of the value, low 8 bits
      - id: index
        -orig-id: index
        type: u2
        doc: object index, as declared
      - id: u16_attr_rev
        -orig-id: m_u16AttrRev
        type: u2
        doc: reserved, 0
      - id: transition
        -orig-id: Transition
        type: u2
        doc: reserved, 0
      - id: sub_index
        -orig-id: SubIndex
        type: u1
        doc: 'low 8 bits; 1 in every assignment of a PDO: number several of them yourself'
      - id: bif_ca
        -orig-id: bifCA
        type: u1
        doc: reserved, 0
      - id: data
        -orig-id: Data
        type: u4
        doc: value

enums:
  item_code:
    0:
      id: end_of_run
      -orig-id: KTL_ITEM_END
      doc: closes a run
    40000:
      id: general
      -orig-id: KTL_ITEM_General
      doc: opens a device
    40001:
      id: sm
      -orig-id: KTL_ITEM_SM
    40002:
      id: dc
      -orig-id: KTL_ITEM_DC
    40003:
      id: rx_pdo
      -orig-id: KTL_ITEM_RxPdo
      doc: one output PDO
    40004:
      id: tx_pdo
      -orig-id: KTL_ITEM_TxPdo
      doc: one input PDO
    40005:
      id: eoe
      -orig-id: KTL_ITEM_EoE
    40006:
      id: coe
      -orig-id: KTL_ITEM_CoE
    40007:
      id: slot
      -orig-id: KTL_ITEM_Slot
    40008:
      id: eeprom
      -orig-id: KTL_ITEM_EEPROM
      doc: in no exported file
    40009:
      id: object_detect_type
      -orig-id: KTL_ITEM_ObjectDetectType
      doc: in no exported file
    40010:
      id: object_config_type
      -orig-id: KTL_ITEM_ObjectConfigType
      doc: in no exported file
    40011:
      id: object_module
      -orig-id: KTL_ITEM_ObjectModule
      doc: reserved, no layout
    40012:
      id: sub_object_type
      -orig-id: KTL_ITEM_SubObjectType
      doc: in no exported file
    40013:
      id: module_type
      -orig-id: KTL_ITEM_ModuleType
      doc: opens a module
    40014:
      id: fmmu
      -orig-id: KTL_ITEM_FMMU
    40015:
      id: slot_pre_config
      -orig-id: KTL_ITEM_SlotPreConfig
    40016:
      id: device_more_info
      -orig-id: KTL_ITEM_DeviceMoreInfo
    40100:
      id: module_rx_pdo_type
      -orig-id: KTL_ITEM_ModuleRxPDOType
      doc: reserved, no layout
    40101:
      id: module_tx_pdo_type
      -orig-id: KTL_ITEM_ModuleTxPDOType
      doc: reserved, no layout
    40102:
      id: module_tpdo_entry_type
      -orig-id: KTL_ITEM_ModuleTPDOEntryType
      doc: inputs. Tx has the lower code here,
    40103:
      id: module_rpdo_entry_type
      -orig-id: KTL_ITEM_ModuleRPDOEntryType
      doc: outputs. Rx has it of the device PDOs
    40104:
      id: module_coe_init_cmd_type
      -orig-id: KTL_ITEM_ModuleCoEInitCmdType
    40105:
      id: module_dict_dt
      -orig-id: KTL_ITEM_ModuleDictDT
      doc: reserved, no layout
    40106:
      id: module_dict_object
      -orig-id: KTL_ITEM_ModuleDictObject
      doc: reserved, no layout
  device_type:
    0:
      id: io_block
      -orig-id: KTL_DEVICE_TYPE_IOBlock
      doc: plain I/O
    1:
      id: single_driver
      -orig-id: KTL_DEVICE_TYPE_SingleDriver
      doc: one drive axis
    2:
      id: multi_driver
      -orig-id: KTL_DEVICE_TYPE_MultiDriver
      doc: several drive axes; module PDOs become RxPdo and TxPdo items
    3:
      id: pnp_io_block
      -orig-id: KTL_DEVICE_TYPE_PnpIOBlock
      doc: coupler that finds its modules by itself; module blocks
    4:
      id: special
      -orig-id: KTL_DEVICE_TYPE_Special
      doc: coupler and modules form one device; items as of MultiDriver
    5:
      id: manual_io_block
      -orig-id: KTL_DEVICE_TYPE_ManualIOBlock
      doc: coupler whose modules must be preset; module blocks and SlotPreConfig
  fmmu_type:
    0:
      id: unknown_type
      -orig-id: KTL_UnknownType
    1:
      id: mbox_out
      -orig-id: KTL_MBoxOut
    2:
      id: mbox_in
      -orig-id: KTL_MBoxIn
    3:
      id: outputs
      -orig-id: KTL_Outputs
    4:
      id: inputs
      -orig-id: KTL_Inputs
    5:
      id: dy_outputs
      -orig-id: KTL_DyOutputs
    6:
      id: dy_inputs
      -orig-id: KTL_DyInputs
    7:
      id: local_memory
      -orig-id: KTL_Local
  link:
    0:
      id: none
      -orig-id: KTL_PDO_TYPE_NONE
    -1:
      id: din
      -orig-id: KTL_PDO_TYPE_DIN
    -2:
      id: dout
      -orig-id: KTL_PDO_TYPE_DOUT
    -4:
      id: i16_ain
      -orig-id: KTL_PDO_TYPE_I16_AIN
    -5:
      id: i32_ain
      -orig-id: KTL_PDO_TYPE_I32_AIN
    -6:
      id: float_ain
      -orig-id: KTL_PDO_TYPE_FLOAT_AIN
    -7:
      id: i16_aout
      -orig-id: KTL_PDO_TYPE_I16_AOUT
    -8:
      id: i32_aout
      -orig-id: KTL_PDO_TYPE_I32_AOUT
    -9:
      id: float_aout
      -orig-id: KTL_PDO_TYPE_FLOAT_AOUT
    -10:
      id: encoder32
      -orig-id: KTL_PDO_TYPE_ENCODER32
  transition:
    0:
      id: unknown
      -orig-id: KTL_TRANSITION_UNKNOWN
      doc: none or unknown
    1:
      id: ip
      -orig-id: KTL_TRANSITION_IP
      doc: INIT to PREOP
    2:
      id: ps
      -orig-id: KTL_TRANSITION_PS
      doc: PREOP to SAFEOP
    3:
      id: ip_ps
      -orig-id: KTL_TRANSITION_IP_PS
      doc: both 1 and 2
    4:
      id: pi
      -orig-id: KTL_TRANSITION_PI
      doc: PREOP to INIT
    5:
      id: sp
      -orig-id: KTL_TRANSITION_SP
      doc: SAFEOP to PREOP
    6:
      id: so
      -orig-id: KTL_TRANSITION_SO
      doc: SAFEOP to OP
    7:
      id: si
      -orig-id: KTL_TRANSITION_SI
      doc: SAFEOP to INIT
    8:
      id: os
      -orig-id: KTL_TRANSITION_OS
      doc: OP to SAFEOP
    9:
      id: op
      -orig-id: KTL_TRANSITION_OP
      doc: OP to PREOP
    10:
      id: oi
      -orig-id: KTL_TRANSITION_OI
      doc: OP to INIT
    11:
      id: ib
      -orig-id: KTL_TRANSITION_IB
      doc: INIT to BOOT
    12:
      id: bi
      -orig-id: KTL_TRANSITION_BI
      doc: BOOT to INIT
  access:
    0:
      id: unknown
      -orig-id: KTL_ACCESS_UNKNOWN
    16:
      id: ro
      -orig-id: KTL_ACCESS_RO
      doc: read only
    17:
      id: rw
      -orig-id: KTL_ACCESS_RW
      doc: read and write
    18:
      id: wo
      -orig-id: KTL_ACCESS_WO
      doc: write only
