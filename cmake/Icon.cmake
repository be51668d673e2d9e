# Puts an icon of packaging/desktop into a program, in the sizes that windows and switchers show. The
# program finds it in ":/icons/SIZE/NAME.png".
function(brivon_add_icon program icon)
  set(drawings ${PROJECT_SOURCE_DIR}/packaging/desktop)
  foreach(size 16 24 32 48 64 128)
    list(APPEND files ${drawings}/icons/${size}/${icon}.png)
  endforeach()
  qt_add_resources(${program} icon BASE ${drawings} PREFIX / FILES ${files})
endfunction()
