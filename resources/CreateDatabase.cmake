# cmake -DSCHEMA=<schema.sql> -DFOLDER=<program folder> -DSQLITE3=<sqlite3> -P CreateDatabase.cmake
#
# Creates FOLDER/db.daa from SCHEMA unless it exists, and FOLDER/daa.mdb as a symbolic link
# to it unless that exists, so stock updates reach the one database a user has.
set(database "${FOLDER}/db.daa")
set(stockDatabase "${FOLDER}/daa.mdb")

if(NOT EXISTS "${database}")
  file(MAKE_DIRECTORY "${FOLDER}")
  # Built beside the target and renamed, so a failed run never leaves half a database.
  set(partial "${database}.new")
  file(REMOVE "${partial}")
  execute_process(COMMAND "${SQLITE3}" -bail "${partial}" INPUT_FILE "${SCHEMA}"
                  RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    file(REMOVE "${partial}")
    message(FATAL_ERROR "Creating ${database} from ${SCHEMA} failed: ${errors}")
  endif()
  file(RENAME "${partial}" "${database}")
  message(STATUS "Created ${database}")
endif()

if(NOT EXISTS "${stockDatabase}" AND NOT IS_SYMLINK "${stockDatabase}")
  file(CREATE_LINK "db.daa" "${stockDatabase}" SYMBOLIC)
endif()
