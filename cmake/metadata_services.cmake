# The product. Its sources are compiled once, into objects: the shared library shows only its
# exported symbols, the unit tests link the objects and see the rest.

add_library(zelk-metadata-services-objects OBJECT
  authentication/json_metadata_container.cc
  authentication/json_metadata_parser.cc
  authentication/metadata_container.cc
  authentication/queries.cc
  authentication/services.cc
  authentication/source_data.cc
  cli/json_metadata_container.cc
  cli/metadata_container.cc
  cli/metadata_parser.cc
  cli/queries.cc
  cli/services.cc
  cli/source_data.cc
  common/json_document.cc
  common/json_enum.cc
  common/json_heap.cc
  common/json_lookup.cc
  common/message_catalog.cc
  common/source_file.cc
  common/text_buffer.cc
  metamodel/component_parser.cc
  metamodel/constant_parser.cc
  metamodel/json_metadata_container.cc
  metamodel/metadata_container.cc
  metamodel/metadata_parser.cc
  metamodel/queries.cc
  metamodel/services.cc
  metamodel/source_data.cc
  metamodel/structure_parser.cc
  metamodel/type_parser.cc)
zelk_target_defaults(zelk-metadata-services-objects)
set_target_properties(zelk-metadata-services-objects PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)
target_include_directories(zelk-metadata-services-objects
  PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(zelk-metadata-services-objects
  PUBLIC Zelk::core Zelk::std-bindings Boost::headers rapidjson)

add_library(zelk-metadata-services SHARED $<TARGET_OBJECTS:zelk-metadata-services-objects>)
zelk_shared_library(zelk-metadata-services
  INCLUDE ${PROJECT_SOURCE_DIR}/include
  SYMBOLS ${PROJECT_SOURCE_DIR}/cmake/exported_symbols.map)
set_target_properties(zelk-metadata-services PROPERTIES LINKER_LANGUAGE CXX)
target_link_libraries(zelk-metadata-services PUBLIC Zelk::core Zelk::std-bindings Boost::headers)
