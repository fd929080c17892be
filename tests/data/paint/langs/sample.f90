! Averages a list of readings; it doesn't check for an empty list.
program average
  implicit none
  integer, parameter :: n = 5
  real :: readings(n) = (/ 1.5, 2.0, 3.25, 4.0, 5.5 /)
  real :: total
  integer :: i

  total = 0.0
  do i = 1, n
     total = total + readings(i)
  end do
  ! The user's unit is assumed to be metres.
  if (total > 10.0) then
     print *, "large total:", total
  else
     print *, 'small total:', total
  end if
  write (*, '(A, F8.3)') "mean = ", total / n
contains
  real function square(x)
    real, intent(in) :: x
    square = x * x
  end function square
end program average
