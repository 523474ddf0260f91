! SPDX-License-Identifier: MIT
! Every export through the module.
program modern
    use, intrinsic :: iso_c_binding, only: c_funloc, c_funptr, c_int
    use every_export, only: call_export
    implicit none
    interface
        integer(c_int) function compare(by_number) bind(C, name="compare_")
            import :: c_funptr, c_int
            type(c_funptr), value :: by_number
        end function
    end interface
    if (compare(c_funloc(call_export)) /= 0) error stop
end program
