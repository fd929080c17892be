;;; Counts the words of a list; it doesn't treat case specially.
(defun count-words (words)
  "Returns an alist of each word and its count."
  (let ((table (make-hash-table :test #'equal))
        (result '()))
    (dolist (w words)
      (incf (gethash w table 0)))
    ;; The table's order isn't kept.
    (maphash (lambda (k v) (push (cons k v) result)) table)
    result))

#| A block comment: don't run this at load time.
   It's only an example. |#
(defun main ()
  (let ((counts (count-words '("a" "b" "a"))))
    (format t "~a distinct words~%" (length counts))
    (when (null counts)
      (error "no words"))
    counts))
